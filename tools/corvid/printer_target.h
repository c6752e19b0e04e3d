// Which printer the tool talks to: a device path, a COM port number, or the built-in
// simulated printer (the default).
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "corvid/simulated_printer.h"

namespace corvid::tool {

class PrinterTarget {
  public:
    // "" for the simulator, "COM5" or "5" for port 5, anything else is a device path.
    explicit PrinterTarget(const std::string& where);
    ~PrinterTarget();

    // The port number to give Abrir.
    std::int16_t port() const { return port_; }
    // What the tool says it is talking to.
    const std::string& description() const { return description_; }
    SimulatedPrinter* simulator() const { return simulator_.get(); }

  private:
    std::int16_t port_ = 1;
    std::string description_;
    std::unique_ptr<SimulatedPrinter> simulator_;
};

}  // namespace corvid::tool
