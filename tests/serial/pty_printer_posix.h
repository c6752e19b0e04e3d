// The printer's end of a pseudo-terminal: its master, in raw mode.
#pragma once

#include <string>

#include "serial/printer_end.h"

namespace corvid::serial {

class PtyPrinter : public PrinterEnd {
  public:
    PtyPrinter();  // throws when the system has no pseudo-terminal to give
    ~PtyPrinter() override;
    PtyPrinter(const PtyPrinter&) = delete;
    PtyPrinter& operator=(const PtyPrinter&) = delete;

    int fd() const { return master_; }
    std::string SlavePath() const;
    void Send(const std::string& bytes) override;
    std::string Receive(std::size_t expected, std::chrono::milliseconds timeout) override;
    void HangUp() override;

  private:
    int master_ = -1;
};

}  // namespace corvid::serial
