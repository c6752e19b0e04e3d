// The printer's end of a pseudo-terminal: its master, in raw mode.
#pragma once

#include <string>

#include "serial/printer_end.h"
#include "support/raw_terminal_posix.h"

namespace corvid::serial {

class PtyPrinter : public PrinterEnd {
  public:
    int fd() const { return master_.fd(); }
    std::string SlavePath() const { return master_.SlavePath(); }
    void Send(const std::string& bytes) override { master_.Send(bytes); }
    std::string Receive(std::size_t expected, std::chrono::milliseconds timeout) override {
        return master_.ReadUntil([&](const std::string& got) { return got.size() >= expected; },
                                 timeout);
    }
    void HangUp() override { master_.Close(); }

  private:
    test_support::RawTerminal master_;
};

}  // namespace corvid::serial
