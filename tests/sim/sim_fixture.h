// A running simulator with the host's line open on it.
#pragma once

#include <gtest/gtest.h>

#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "host_line.h"
#include "session/framing.h"
#include "sim/simulator.h"

namespace corvid::sim::testing {

inline constexpr milliseconds kQuiet{80};  // long enough to tell "no reply" on an idle line

// The printer's clock stopped at 2024-05-17 10:30:15.
inline std::tm May17At103015() {
    std::tm t{};
    t.tm_year = 124;
    t.tm_mon = 4;
    t.tm_mday = 17;
    t.tm_hour = 10;
    t.tm_min = 30;
    t.tm_sec = 15;
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

}  // namespace corvid::sim::testing
