// A pseudo-terminal pair whose slave side stands for the printer's serial port. The
// master is raw (no line discipline touches a byte) and non-blocking. A slave handle is
// kept open so the master never reports a hang-up while no host has the port open.
// Optionally a symbolic link (e.g. a Wine dosdevices/com5 entry) points at the slave.
#pragma once

#include <string>

namespace corvid::sim {

class PseudoTerminal {
  public:
    // Throws std::system_error when the pair or the link cannot be made.
    explicit PseudoTerminal(const std::string& linkPath = {});
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    int master() const { return master_; }
    const std::string& slavePath() const { return slavePath_; }

    // Closes both sides and removes the link: the host sees the line drop.
    void Close();

  private:
    int master_ = -1;
    int slaveKeeper_ = -1;
    std::string slavePath_;
    std::string linkPath_;
};

}  // namespace corvid::sim
