// Replies split into fields, one block or several, and the status queries: which command
// each sends, and the reply layouts they read.
#include "session/session_fixture.h"

namespace corvid::session::testing {
namespace {

using automation::Currency;

class StatusTest : public SessionTest {
  protected:
    void Reply(const std::string& text, int end = ETX) {
        line_->blockAnswers.push_back(Reads{DataReply(text, end)});
    }
};

// The queries' records against every fault of the line are checked end to end; here, the
// layouts and indexes the simulated printer does not vary.
TEST_F(StatusTest, EachQuerySendsItsCommandAndReadsTheReply) {
    PrinterFiscal& s = OpenSession();
    Reply("S107\n0012345\n00001520\n3\n310\n2\n0204\n19\nJ-3\nZ1F0000001\n241105\n1030");
    EXPECT_EQ(s.numeroUltimaFactura(), 1520);
    Reply("S107\n0\n1520\n3\n12\n0\n48\n1\n310\n2\n19\n204\nJ-3\nZ1F0000002\n1030\n241105");
    EXPECT_EQ(s.NumeroUltimoCierre(), 48);
    Reply("S4100\n200");
    EXPECT_EQ(s.Response4()->valor(2), Currency::FromDouble(2));
    EXPECT_EQ(s.tasa(0) + s.tasa(4), 0);  // nothing sent out of range
    Reply("01600\n00800\n03100\n0300\n0000");
    EXPECT_DOUBLE_EQ(s.tasa(3), 31);
    EXPECT_EQ(line_->Commands(), (std::vector<std::string>{"S1", "S1", "S4", "S3"}));
}

TEST_F(StatusTest, ARefusedClosingIsNotFollowedByTheSummary) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers = std::deque<Reads>(7, Reads{});
    EXPECT_EQ(s.CerrarZ(), nullptr);
    EXPECT_EQ(line_->Commands(), std::vector<std::string>(7, "I0Z"));
}

TEST_F(SessionTest, ReplyFieldsAreSplitAtLineFeed) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers = {{DataReply("A\nB")}, {DataReply("A\nB\n")}, {"xy\x03"}};
    EXPECT_EQ(s.GetResponse("S1"), (Fields{"A", "B"}));
    EXPECT_EQ(s.GetResponseString("S1", "|"), "|A|B|");
    EXPECT_EQ(s.GetResponse("S1"), Fields{"xy"});  // no STX: all of it but the end
    line_->statusAnswers.push_back(Reads{});
    EXPECT_EQ(s.GetResponse("S1"), Fields{"pfError"});
    EXPECT_EQ(line_->BlocksWritten(), 3);
}

TEST_F(SessionTest, FurtherBlocksAreAcknowledgedOneByOne) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers = {{DataReply("a1\na2", ETB)},
                           {DataReply("a\nb", ETB)},
                           {DataReply("a\nb", ETB)},
                           {DataReply("a", ETB)}};
    line_->ackAnswers = {
        {DataReply("b1", ETB)}, {DataReply("c1\nc2")}, {DataReply("c")}, {DataReply("c")}};
    EXPECT_EQ(s.GetMultipleResponses("X"),
              (std::vector<Fields>{{"a1", "a2"}, {"b1"}, {"c1", "c2"}}));
    EXPECT_EQ(line_->Count(Byte(ACK)), 2);
    EXPECT_EQ(s.GetMultipleResponsesStr("X", ",", ";"), "a,b;c");
    EXPECT_EQ(s.GetMultipleResponsesStr("X"),
              "a\x1F"
              "b\x1E"
              "c");
    // A block that never completes ends the reply.
    EXPECT_EQ(s.GetMultipleResponsesStr("X"), "a");
    EXPECT_EQ(s.outcome().pfError, pfCommError);
}

}  // namespace
}  // namespace corvid::session::testing
