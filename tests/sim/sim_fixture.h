// A running simulator with the host's line open on it; PrinterTest stops its clock at
// 17-05-2024 10:30:15 and has short ways to send commands it must accept or refuse.
#pragma once

#include <gtest/gtest.h>

#include <ctime>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "session/framing.h"
#include "sim/simulator.h"
#include "support/raw_terminal_posix.h"

namespace corvid::sim::testing {

using std::chrono::milliseconds;

inline constexpr milliseconds kQuiet{80};  // long enough to tell "no reply" on an idle line

// The host's end of the simulated line.
class HostLine : public test_support::RawTerminal {
  public:
    using RawTerminal::RawTerminal;
    // One whole reply: a lone ACK or NAK, or everything up to the check byte after the
    // first ETX, ETB or EOT that follows an STX. Whatever arrived within `timeout` else.
    std::string ReadReply(milliseconds timeout = milliseconds(2000)) {
        return ReadUntil(
            [](const std::string& bytes) {
                const std::size_t stx = bytes.find('\x02');
                if (stx == std::string::npos) {
                    return !bytes.empty() && (bytes.back() == '\x06' || bytes.back() == '\x15');
                }
                const std::size_t end = bytes.find_first_of("\x03\x17\x04", stx);
                return end != std::string::npos && end + 1 < bytes.size();
            },
            timeout);
    }
};

// The printer's clock stopped at 2024-05-17 10:30:15.
inline std::tm May17At103015() {
    std::tm t{};
    t.tm_year = 124, t.tm_mon = 4, t.tm_mday = 17, t.tm_hour = 10, t.tm_min = 30, t.tm_sec = 15;
    return t;
}

class SimulatorTest : public ::testing::Test {
  protected:
    void Start(SimulatorConfig config = {}) {
        sim_ = std::make_unique<Simulator>(std::move(config));
        sim_->Start();
        line_ = std::make_unique<HostLine>(sim_->SlavePath());
    }
    void SetUp() override { Start(); }

    std::string Exchange(std::string_view bytes) {
        line_->Send(bytes);
        return line_->ReadReply();
    }
    std::string SendCommand(std::string_view command) {
        return Exchange(session::BuildCommandBlock(command));
    }

    std::unique_ptr<Simulator> sim_;
    std::unique_ptr<HostLine> line_;
};

inline std::string Bytes(std::initializer_list<int> codes) {
    std::string bytes;
    for (int code : codes) bytes += static_cast<char>(code);
    return bytes;
}

// The fields of a data reply STX text end check.
inline std::vector<std::string> FieldsOf(const std::string& reply) {
    std::vector<std::string> fields(1);
    if (reply.size() < 3) return {};
    for (char c : reply.substr(1, reply.size() - 3)) {
        if (c == '\n') {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    return fields;
}

// A simulated printer with its clock stopped.
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
