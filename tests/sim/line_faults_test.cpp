// Each fault of the line hits exactly the replies it was armed for and then wears off.
#include <gtest/gtest.h>
#include <poll.h>

#include <chrono>
#include <functional>
#include <iterator>
#include <sstream>
#include <string>

#include "sim/options.h"
#include "sim/wire.h"
#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

const std::string kEnq = Bytes({5});
const std::string kAck = Bytes({6});
const std::string kStatus = FrameReply(Bytes({0x60, 0x40}), kEtx);
const std::string kW = session::BuildCommandBlock("w");
const std::string kTwoBlocks = session::BuildCommandBlock("~B2");

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

std::string Spoilt(std::string reply) {
    reply.back() = static_cast<char>(reply.back() ^ 0x55);
    return reply;
}

const FaultCase kFaults[] = {
    {"nak", [](Simulator& s) { s.NakNextBlocks(1); }, {{kW, Bytes({21})}, {kW, kAck}}},
    {"ignore_blocks",
     [](Simulator& s) { s.IgnoreNextBlocks(1); },
     {{kW, ""}, {kEnq, kStatus}, {kW, kAck}}},
    {"silent_enq",
     [](Simulator& s) { s.SilenceNextStatusRequests(1); },
     {{kEnq, ""}, {kW, kAck}, {kEnq, kStatus}}},
    {"mute", [](Simulator& s) { s.SetMuted(true); }, {{kEnq, ""}, {kW, ""}}},
    // Replies of the kinds not selected go out as usual.
    {"enq_prefix",
     [](Simulator& s) { s.PrefixNextRepliesWithEnq(1); },
     {{kW, kAck}, {kEnq, kEnq + kStatus}, {kEnq, kStatus}}},
    {"enq_prefix_on_ack",
     [](Simulator& s) { s.PrefixNextRepliesWithEnq(1, kAckReply); },
     {{kEnq, kStatus}, {kW, kEnq + kAck}}},
    // The ACK that answers the ENQ does not advance a reply of several blocks.
    {"enq_prefix_multi_block",
     [](Simulator& s) { s.PrefixNextRepliesWithEnq(1); },
     {{kTwoBlocks, kEnq + FrameReply("1\n2", kEtb)}, {kAck, ""}, {kAck, FrameReply("2\n2", kEtx)}}},
    {"eot_end",
     [](Simulator& s) { s.EndNextRepliesWithEot(1); },
     {{kEnq, FrameReply(Bytes({0x60, 0x40}), kEot)}, {kEnq, kStatus}}},
    {"garbage",
     [](Simulator& s) { s.SendGarbageBeforeNextReplies(1); },
     {{kEnq, "\xFF\x11\x7F" + kStatus}, {kEnq, kStatus}}},
    {"bad_check",
     [](Simulator& s) { s.SpoilNextCheckBytes(1); },
     {{kEnq, Spoilt(kStatus)}, {kEnq, kStatus}}},
    // The first block of the reply spared; the second padded with blanks.
    {"oversize",
     [](Simulator& s) {
         s.OversizeNextReplies(1, 600);
         s.ChangeFaults([](FaultPlan& plan) { plan.oversize.skip = 1; });
     },
     {{kTwoBlocks, FrameReply("1\n2", kEtb)},
      {kAck, FrameReply("2\n2" + std::string(597, ' '), kEtx)}}},
    // The printer still listens after the line dropped.
    {"drop",
     [](Simulator& s) { s.DropLineInNextReplies(1, 3); },
     {{kEnq, kStatus.substr(0, 3)}, {kEnq, kStatus}}},
    {"late",
     [](Simulator& s) { s.HoldBackNextReplies(1, milliseconds(400), kStatusReply); },
     {{kW, kAck}, {kEnq, ""}, {"", kStatus}, {kEnq, kStatus}}},
};

INSTANTIATE_TEST_SUITE_P(Faults, LineFaultTest, ::testing::ValuesIn(kFaults),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(SimulatorTest, ADelayHoldsBackEveryReply) {
    sim_->SetReplyDelay(milliseconds(120));
    for (int i = 0; i < 2; ++i) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(Exchange(kEnq), kStatus);
        EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(120));
    }
}

TEST_F(SimulatorTest, ADropCanHangUpForGood) {
    sim_->DropLineInNextReplies(1, 100, kAckReply, true);
    line_->Send(kW);
    pollfd p{line_->fd(), POLLIN, 0};
    ASSERT_EQ(poll(&p, 1, 1000), 1);
    EXPECT_NE(p.revents & POLLHUP, 0);  // the lone ACK did not go out, the line is down
    EXPECT_EQ(line_->ReadChunk(milliseconds(0)), "");
    sim_->Stop();  // still safe after a hang-up
}

std::vector<std::string> Words(const std::string& text) {
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), {}};
}

TEST(SimulatorOptions, FaultsAndLayoutFromTheCommandLine) {
    const Options options = ParseOptions(
        Words("--bad-check 2 --oversize 1 --oversize-to 7000 --drop 3 --drop-after 4 --hang-up "
              "--late 5 --late-by 250 --garbage-bytes ff00 --variant hka112 --s1-layout short "
              "--sts1 0x61"));
    const FaultPlan& plan = options.config.faults;
    EXPECT_EQ(plan.badCheck.remaining, 2);
    EXPECT_EQ(plan.oversize.remaining, 1);
    EXPECT_EQ(plan.oversizeTo, 7000u);
    EXPECT_EQ(plan.drop.remaining, 3);
    EXPECT_EQ(plan.dropAfter, 4u);
    EXPECT_TRUE(plan.hangUpOnDrop);
    EXPECT_EQ(plan.late.remaining, 5);
    EXPECT_EQ(plan.late.kinds, kAnyReply);
    EXPECT_EQ(plan.lateBy, milliseconds(250));
    EXPECT_EQ(plan.garbageBytes, std::string("\xFF\x00", 2));
    EXPECT_EQ(options.config.printer.serial, DefaultSerial(Variant::HKA112));
    EXPECT_EQ(options.config.printer.s1LayoutInUse(), S1Layout::Short);
    EXPECT_EQ(options.config.printer.forcedSts1, 0x61);
    for (const char* bad :
         {"--oversize-to 0", "--s1-layout wide", "--nak", "--garbage-bytes f", "--bogus"}) {
        EXPECT_THROW(ParseOptions(Words(bad)), std::invalid_argument) << bad;
    }
}

}  // namespace
}  // namespace corvid::sim::testing
