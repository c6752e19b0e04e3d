// Faults of the line itself: a spoilt check byte, a reply too big for one read, a line
// that drops in the middle of a reply, a reply held back. Each hits exactly the replies it
// was armed for.
#include <gtest/gtest.h>
#include <poll.h>

#include <chrono>
#include <string>

#include "sim/options.h"
#include "sim/wire.h"
#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

using Direction = TranscriptEntry::Direction;
using What = TranscriptEntry::What;

const std::string kEnq = Bytes({5});
const std::string kStatus = Bytes({2, 0x60, 0x40, 3, 0x60 ^ 0x40 ^ 3});

TEST_F(SimulatorTest, ASpoiltCheckByteHitsOnlyTheArmedReply) {
    sim_->SpoilNextCheckBytes(1);
    const std::string spoilt = Exchange(kEnq);
    ASSERT_EQ(spoilt.size(), kStatus.size());
    EXPECT_EQ(spoilt.substr(0, 4), kStatus.substr(0, 4));
    EXPECT_NE(spoilt.back(), kStatus.back());
    EXPECT_EQ(Exchange(kEnq), kStatus);
}

TEST_F(SimulatorTest, AnOversizedBlockCanSpareTheFirstBlockOfAReply) {
    sim_->OversizeNextReplies(1, 6000);
    sim_->ChangeFaults([](FaultPlan& plan) { plan.oversize.skip = 1; });
    EXPECT_EQ(SendCommand("~B2"), FrameReply("1\n2", kEtb));
    line_->Send(Bytes({6}));
    std::string second;
    for (std::string chunk; second.size() < 6003; second += chunk) {
        chunk = line_->ReadChunk(milliseconds(1000));
        if (chunk.empty()) break;
    }
    EXPECT_EQ(second, FrameReply("2\n2" + std::string(5997, ' '), kEtx));
}

TEST_F(SimulatorTest, ADroppedLineSendsTheFirstBytesThenNothing) {
    sim_->DropLineInNextReplies(1, 3);
    line_->Send(kEnq);
    EXPECT_EQ(line_->ReadReply(milliseconds(300)), kStatus.substr(0, 3));
    // The printer still listens: the next request is answered whole.
    EXPECT_EQ(Exchange(kEnq), kStatus);
    const auto entries = sim_->transcript().Entries();
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[1].bytes, kStatus.substr(0, 3));
    EXPECT_NE(entries[1].note.find("dropped"), std::string::npos);
}

TEST_F(SimulatorTest, ADropNeverSendsTheWholeReplyAndCanHangUp) {
    sim_->DropLineInNextReplies(1, 100, kAckReply, true);
    line_->Send(session::BuildCommandBlock("w"));
    pollfd p{line_->fd(), POLLIN, 0};
    ASSERT_EQ(poll(&p, 1, 1000), 1);
    EXPECT_NE(p.revents & POLLHUP, 0);  // the lone ACK did not go out, the line is down
    EXPECT_EQ(line_->ReadChunk(milliseconds(0)), "");
}

TEST_F(SimulatorTest, AHeldBackReplyComesLateAndTheNextOnTime) {
    sim_->HoldBackNextReplies(1, milliseconds(150), kStatusReply);
    EXPECT_EQ(SendCommand("w"), Bytes({6}));  // not the selected kind
    line_->Send(kEnq);
    EXPECT_EQ(line_->ReadChunk(milliseconds(100)), "");
    EXPECT_EQ(line_->ReadReply(), kStatus);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Exchange(kEnq), kStatus);
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(100));
}

TEST(SimulatorOptions, LineFaultsFromTheCommandLine) {
    const FaultPlan plan =
        ParseOptions({"--bad-check", "2", "--oversize", "1", "--oversize-to", "7000", "--drop", "3",
                      "--drop-after", "4", "--hang-up", "--late", "5", "--late-by", "250"})
            .config.faults;
    EXPECT_EQ(plan.badCheck.remaining, 2);
    EXPECT_EQ(plan.oversize.remaining, 1);
    EXPECT_EQ(plan.oversizeTo, 7000u);
    EXPECT_EQ(plan.drop.remaining, 3);
    EXPECT_EQ(plan.dropAfter, 4u);
    EXPECT_TRUE(plan.hangUpOnDrop);
    EXPECT_EQ(plan.late.remaining, 5);
    EXPECT_EQ(plan.late.kinds, kAnyReply);
    EXPECT_EQ(plan.lateBy, milliseconds(250));
    EXPECT_THROW(ParseOptions({"--oversize-to", "0"}), std::invalid_argument);
}

}  // namespace
}  // namespace corvid::sim::testing
