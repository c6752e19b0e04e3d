#include "corvid/simulated_printer.h"
#include "sim/builtin_commands.h"
#include "sim/simulator.h"

namespace corvid::tool {

namespace {

class PseudoTerminalPrinter : public SimulatedPrinter {
  public:
    PseudoTerminalPrinter() { simulator_.Start(); }
    ~PseudoTerminalPrinter() override { simulator_.Stop(); }
    std::string DevicePath() const override { return simulator_.SlavePath(); }
    void NakNextBlocks(int count) override { simulator_.NakNextBlocks(count); }
    std::string MultiBlockQuery(int blocks) const override {
        return sim::kMultiBlockTestCommand + std::to_string(blocks);
    }
    std::string PrintedText() const override { return simulator_.PaperText(); }

  private:
    sim::Simulator simulator_;
};

}  // namespace

std::unique_ptr<SimulatedPrinter> StartSimulatedPrinter() {
    return std::make_unique<PseudoTerminalPrinter>();
}

}  // namespace corvid::tool
