// Planned faults hit exactly the replies they were planned for and then wear off.
#include <gtest/gtest.h>
#include <poll.h>

#include <chrono>
#include <string>

#include "sim_fixture.h"

namespace corvid::sim::testing {
namespace {

using Direction = TranscriptEntry::Direction;
using What = TranscriptEntry::What;

const std::string kStatus = Bytes({2, 0x60, 0x40, 3, 0x60 ^ 0x40 ^ 3});

TEST_F(SimulatorTest, SilencesHitOnlyTheirKindOfRequest) {
    sim_->SilenceNextStatusRequests(2);
    sim_->IgnoreNextBlocks(1);
    auto unanswered = [&](const std::string& bytes) {
        line_->Send(bytes);
        return line_->ReadChunk(kQuiet).empty();
    };
    EXPECT_TRUE(unanswered(Bytes({5})));
    EXPECT_TRUE(unanswered(session::BuildCommandBlock("w")));
    EXPECT_EQ(SendCommand("w"), Bytes({6}));
    EXPECT_TRUE(unanswered(Bytes({5})));
    EXPECT_EQ(Exchange(Bytes({5})), kStatus);
}

TEST_F(SimulatorTest, MutedLineAnswersNothingUntilUnmuted) {
    sim_->SetMuted(true);
    line_->Send(Bytes({5}));
    line_->Send(session::BuildCommandBlock("w"));
    EXPECT_EQ(line_->ReadChunk(kQuiet), "");
    EXPECT_TRUE(sim_->WaitForBlocks(1, milliseconds(1000)));
    sim_->SetMuted(false);
    EXPECT_EQ(Exchange(Bytes({5})), kStatus);
}

TEST_F(SimulatorTest, DelayHoldsBackEveryReply) {
    sim_->SetReplyDelay(milliseconds(120));
    auto start = std::chrono::steady_clock::now();
    line_->Send(Bytes({5}));
    EXPECT_EQ(line_->ReadChunk(milliseconds(100)), "");
    EXPECT_EQ(line_->ReadReply(), kStatus);
    EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(120));
}

TEST_F(SimulatorTest, EnqPrefixHitsTheSelectedReplies) {
    sim_->PrefixNextRepliesWithEnq(1);
    EXPECT_EQ(SendCommand("w"), Bytes({6}));  // ACK replies are not selected by default
    EXPECT_EQ(Exchange(Bytes({5})), Bytes({5}) + kStatus);
    EXPECT_EQ(Exchange(Bytes({6, 5})), kStatus);

    sim_->PrefixNextRepliesWithEnq(1, kAckReply);
    EXPECT_EQ(SendCommand("w"), Bytes({5, 6}));
}

TEST_F(SimulatorTest, AckAnsweringAnEnqDoesNotAdvanceAMultiBlockReply) {
    sim_->PrefixNextRepliesWithEnq(1);
    std::string first = SendCommand("~B2");
    ASSERT_EQ(first.substr(0, 2), Bytes({5, 2}));
    line_->Send(Bytes({6}));  // for the ENQ
    EXPECT_EQ(line_->ReadChunk(kQuiet), "");
    EXPECT_EQ(Exchange(Bytes({6})), session::BuildCommandBlock("2\n2"));
}

TEST_F(SimulatorTest, HangUpDropsTheLine) {
    sim_->HangUp();
    pollfd p{line_->fd(), POLLIN, 0};
    ASSERT_EQ(poll(&p, 1, 1000), 1);
    EXPECT_NE(p.revents & POLLHUP, 0);
    sim_->Stop();  // still safe after a hang-up
}

}  // namespace
}  // namespace corvid::sim::testing
