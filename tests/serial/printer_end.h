// The printer's end of a line the host's port table has open, whatever the line is: a
// pseudo-terminal or a null-modem cable under Wine.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "serial/serial_ports.h"

namespace corvid::serial {

inline constexpr const char* kLineSettings = "baud=9600 parity=E data=8 stop=1";

class PrinterEnd {
  public:
    virtual ~PrinterEnd() = default;
    virtual void Send(const std::string& bytes) = 0;
    // What arrived until `expected` bytes came, the line closed or `timeout` passed.
    virtual std::string Receive(std::size_t expected, std::chrono::milliseconds timeout) = 0;
    // The printer goes away; returns once the host's end can tell.
    virtual void HangUp() = 0;

    int hostPort = 0;  // the port of the host's table open on the line
};

struct LineKind {
    std::string name;
    // Opens a port of `ports` on a new line and returns the printer's end of it. A line
    // whose printer will hang up may need to know at the start.
    std::function<std::unique_ptr<PrinterEnd>(PortTable& ports, bool willHangUp)> open;
};

inline void PrintTo(const LineKind& kind, std::ostream* out) { *out << kind.name; }

// The lines of this system (a pseudo-terminal; under Wine, a cable of two).
std::vector<LineKind> PlatformLines();
// CPU time this thread has used, in seconds. Under Wine it counts in ticks of 10 ms.
double ThreadCpuSeconds();

}  // namespace corvid::serial
