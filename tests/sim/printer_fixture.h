// A simulated printer with its clock stopped at 17-05-2024 10:30:15, and short ways to
// send it commands that it must accept or refuse.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "sim_fixture.h"

namespace corvid::sim::testing {

class PrinterTest : public SimulatorTest {
  protected:
    static SimulatorConfig StoppedClock() {
        SimulatorConfig config;
        config.printer.clock = May17At103015();
        return config;
    }
    void SetUp() override { Start(StoppedClock()); }

    void Accept(std::string_view command) {
        EXPECT_EQ(SendCommand(command), Bytes({6})) << "refused: " << command;
    }
    void Refuse(std::string_view command) {
        EXPECT_EQ(SendCommand(command), Bytes({21})) << "accepted: " << command;
    }
    std::vector<std::string> S1() { return FieldsOf(SendCommand("S1")); }
    // The status bytes STS1 and STS2.
    std::pair<int, int> Status() {
        std::string reply = Exchange(Bytes({5}));
        EXPECT_EQ(reply.size(), 5u);
        return {static_cast<unsigned char>(reply[1]), static_cast<unsigned char>(reply[2])};
    }
    FiscalState State() {
        FiscalState copy;
        sim_->ChangeState([&](FiscalState& state) { copy = state; });
        return copy;
    }
};

// The fields of a command joined, e.g. Cmd("!", price, quantity, description).
template <typename... Fields>
std::string Cmd(const Fields&... fields) {
    return (std::string() + ... + std::string(fields));
}

// "PIÑA" in the printer's code page.
inline const std::string kPina = std::string("PI\xD1") + "A";

// A header or footer line as the host sends it: centred in 40 columns.
inline std::string Line40(std::string_view text) {
    std::string line((40 - text.size()) / 2, ' ');
    line += text;
    line.resize(40, ' ');
    return line;
}

}  // namespace corvid::sim::testing
