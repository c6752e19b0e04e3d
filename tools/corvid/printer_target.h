// Which printer the tool talks to: a COM port, a device file, or the built-in simulated
// printer (when --port is not given).
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "corvid/port_choice.h"
#include "corvid/simulated_printer.h"

namespace corvid::tool {

class PrinterTarget {
  public:
    // No choice: start the simulator. Nothing is opened for a port until the session opens
    // it.
    // A device file or the simulator is reached as COM`mappedPort`.
    explicit PrinterTarget(const std::optional<PortChoice>& choice, std::int16_t mappedPort = 1);
    ~PrinterTarget();
    PrinterTarget(const PrinterTarget&) = delete;
    PrinterTarget& operator=(const PrinterTarget&) = delete;

    // The port number to give Abrir.
    std::int16_t port() const { return port_; }
    // What the tool says it is talking to, naming the device ("COM5 (/dev/ttyS4)").
    const std::string& description() const { return description_; }
    // Null unless the built-in simulated printer answers.
    SimulatedPrinter* simulator() const { return simulator_.get(); }

  private:
    std::int16_t port_ = 1;
    bool mapped_ = false;
    std::string description_;
    std::unique_ptr<SimulatedPrinter> simulator_;
};

}  // namespace corvid::tool
