#include "corvid/simulated_printer.h"
#include "sim/simulator.h"

namespace corvid::tool {

namespace {

class PseudoTerminalPrinter : public SimulatedPrinter {
  public:
    PseudoTerminalPrinter() { simulator_.Start(); }
    ~PseudoTerminalPrinter() override { simulator_.Stop(); }
    std::string DevicePath() const override { return simulator_.SlavePath(); }
    void NakNextBlocks(int count) override { simulator_.NakNextBlocks(count); }

  private:
    sim::Simulator simulator_;
};

}  // namespace

std::unique_ptr<SimulatedPrinter> StartSimulatedPrinter() {
    return std::make_unique<PseudoTerminalPrinter>();
}

}  // namespace corvid::tool
