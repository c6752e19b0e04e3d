// The built-in simulated printer the tool talks to when no port is given (Linux only: it
// lives on a pseudo-terminal).
#pragma once

#include <memory>
#include <string>

namespace corvid::tool {

class SimulatedPrinter {
  public:
    virtual ~SimulatedPrinter() = default;
    // The device the session opens to reach it.
    virtual std::string DevicePath() const = 0;
    // Makes the printer refuse the next `count` blocks with NAK.
    virtual void NakNextBlocks(int count) = 0;
    // A query the printer answers in `blocks` blocks.
    virtual std::string MultiBlockQuery(int blocks) const = 0;
    // Everything the printer has printed so far, as UTF-8 lines.
    virtual std::string PrintedText() const = 0;
};

// Starts one; throws std::runtime_error where the platform has none.
std::unique_ptr<SimulatedPrinter> StartSimulatedPrinter();

}  // namespace corvid::tool
