#include "session/session_fixture.h"

namespace corvid::session::testing {
namespace {

TEST_F(SessionTest, ReplyFieldsAreSplitAtLineFeed) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{DataReply("A\nB")});
    EXPECT_EQ(s.GetResponse("S1"), (Fields{"A", "B"}));

    line_->blockAnswers.push_back(Reads{DataReply("A\nB\n")});
    EXPECT_EQ(s.GetResponseString("S1", "|"), "|A|B|");
    line_->blockAnswers.push_back(Reads{DataReply("A\nB")});
    EXPECT_EQ(s.GetResponseString("S1"), "\nA\nB");
}

TEST_F(SessionTest, FailedOrSkippedQueriesAnswerWithOneMarkerField) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    line_->statusAnswers.push_back(Reads{});
    EXPECT_EQ(s.GetResponse("S1"), Fields{"pfError"});
    EXPECT_EQ(line_->BlocksWritten(), 0);

    Set("SkipChecks", "True");
    PrinterFiscal skipped(line_);
    line_->writes.clear();
    EXPECT_EQ(skipped.GetResponse("S1"), Fields{"VOID"});
    EXPECT_TRUE(line_->writes.empty());
}

TEST_F(SessionTest, ReplyWithoutStxKeepsItsTextButLosesTheLastCharacter) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{std::string("xy\x03")});
    EXPECT_EQ(s.GetResponse("S1"), Fields{"xy"});
}

TEST_F(SessionTest, FurtherBlocksAreAcknowledgedOneByOne) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{DataReply("a1\na2", ETB)});
    line_->ackAnswers.push_back(Reads{DataReply("b1", ETB)});
    line_->ackAnswers.push_back(Reads{DataReply("c1\nc2\nc3")});
    const std::vector<Fields> blocks = s.GetMultipleResponses("X");
    ASSERT_EQ(blocks.size(), 3u);
    EXPECT_EQ(blocks[0], (Fields{"a1", "a2"}));
    EXPECT_EQ(blocks[1], Fields{"b1"});
    EXPECT_EQ(blocks[2], (Fields{"c1", "c2", "c3"}));
    EXPECT_EQ(line_->Count(std::string(1, char(ACK))), 2);

    line_->blockAnswers.push_back(Reads{DataReply("a\nb", ETB)});
    line_->ackAnswers.push_back(Reads{DataReply("c")});
    EXPECT_EQ(s.GetMultipleResponsesStr("X"),
              "a\x1F"
              "b\x1E"
              "c");
    line_->blockAnswers.push_back(Reads{DataReply("a\nb", ETB)});
    line_->ackAnswers.push_back(Reads{DataReply("c")});
    EXPECT_EQ(s.GetMultipleResponsesStr("X", ",", ";"), "a,b;c");
}

TEST_F(SessionTest, ABlockThatNeverCompletesEndsAMultiBlockReply) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{DataReply("a", ETB)});
    const std::vector<Fields> blocks = s.GetMultipleResponses("X");
    EXPECT_EQ(blocks.size(), 1u);
    EXPECT_EQ(s.outcome().pfError, pfCommError);
}

}  // namespace
}  // namespace corvid::session::testing
