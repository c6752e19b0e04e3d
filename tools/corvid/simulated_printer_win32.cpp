#include <stdexcept>

#include "corvid/simulated_printer.h"

namespace corvid::tool {

std::unique_ptr<SimulatedPrinter> StartSimulatedPrinter() {
    throw std::runtime_error(
        "the built-in simulated printer runs on Linux only; name a port with --port COMn");
}

}  // namespace corvid::tool
