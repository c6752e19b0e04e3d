// Each fault of the line hits exactly the replies it was armed for and then wears off. The
// faults that change what a host sees (late and oversized replies) are checked by the
// session's fault matrix.

#include <functional>

#include "sim/wire.h"
#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

const std::string kEnq = Bytes({5});
const std::string kAck = Bytes({6});
const std::string kStatus = FrameReply(Bytes({0x60, 0x40}), kEtx);
const std::string kW = session::BuildCommandBlock("w");

// What the host sends, and the reply it reads within 300 ms ("" for none).
struct Step {
    std::string send, reply;
};
struct FaultCase {
    const char* name;
    std::function<void(Simulator&)> arm;
    std::vector<Step> steps;
};

class LineFaultTest : public SimulatorTest, public ::testing::WithParamInterface<FaultCase> {};

TEST_P(LineFaultTest, HitsTheArmedRepliesOnly) {
    GetParam().arm(*sim_);
    for (const Step& step : GetParam().steps) {
        SCOPED_TRACE(session::EscapeString(step.send));
        line_->Send(step.send);
        EXPECT_EQ(line_->ReadReply(milliseconds(300)), step.reply);
    }
}

const FaultCase kFaults[] = {
    {"nak", [](Simulator& s) { s.NakNextBlocks(1); }, {{kW, Bytes({21})}, {kW, kAck}}},
    {"ignore_blocks",
     [](Simulator& s) { s.IgnoreNextBlocks(1); },
     {{kW, ""}, {kEnq, kStatus}, {kW, kAck}}},
    {"silent_enq",
     [](Simulator& s) { s.SilenceNextStatusRequests(1); },
     {{kEnq, ""}, {kW, kAck}, {kEnq, kStatus}}},
    // Replies of the kinds not selected go out as usual.
    {"enq_prefix",
     [](Simulator& s) { s.PrefixNextRepliesWithEnq(1); },
     {{kW, kAck}, {kEnq, kEnq + kStatus}, {kEnq, kStatus}}},
    {"eot_end",
     [](Simulator& s) { s.EndNextRepliesWithEot(1); },
     {{kEnq, FrameReply(Bytes({0x60, 0x40}), kEot)}, {kEnq, kStatus}}},
    {"garbage",
     [](Simulator& s) { s.SendGarbageBeforeNextReplies(1); },
     {{kEnq, "\xFF\x11\x7F" + kStatus}, {kEnq, kStatus}}},
    {"bad_check",
     [](Simulator& s) { s.SpoilNextCheckBytes(1); },
     {{kEnq, kStatus.substr(0, 4) + static_cast<char>(kStatus[4] ^ 0x55)}, {kEnq, kStatus}}},
    // The printer still listens after the line dropped.
    {"drop",
     [](Simulator& s) { s.DropLineInNextReplies(1, 3); },
     {{kEnq, kStatus.substr(0, 3)}, {kEnq, kStatus}}},
};

INSTANTIATE_TEST_SUITE_P(Faults, LineFaultTest, ::testing::ValuesIn(kFaults),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace corvid::sim::testing
