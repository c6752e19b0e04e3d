// Replies with fields, one block or several, and what the exchanges leave in the trace.
#include "host/trace_log.h"
#include "session/process_state.h"
#include "session/session_fixture.h"

namespace corvid::session::testing {
namespace {

TEST_F(SessionTest, ReplyFieldsAreSplitAtLineFeed) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers = {
        {DataReply("A\nB")}, {DataReply("A\nB\n")}, {DataReply("A")}, {"xy\x03"}};
    EXPECT_EQ(s.GetResponse("S1"), (Fields{"A", "B"}));
    EXPECT_EQ(s.GetResponseString("S1", "|"), "|A|B|");
    EXPECT_EQ(s.GetResponseString("S1"), "\nA");
    EXPECT_EQ(s.GetResponse("S1"), Fields{"xy"});  // no STX: all of it but the end
    line_->statusAnswers.push_back(Reads{});
    EXPECT_EQ(s.GetResponse("S1"), Fields{"pfError"});
    EXPECT_EQ(line_->BlocksWritten(), 4);

    Set("SkipChecks", "True");
    PrinterFiscal skipped(line_);
    line_->writes.clear();
    EXPECT_EQ(skipped.GetResponse("S1"), Fields{"VOID"});
    EXPECT_TRUE(line_->writes.empty());
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

// Collects the messages of the session trace (without the time stamps).
class TracedSessionTest : public SessionTest {
  protected:
    void SetUp() override {
        Set("IsDebug", "True");
        Process().trace.SetFileEnabled(false);
        sink_ = Process().trace.AddSink(
            [this](const std::string& line) { messages_.push_back(line.substr(kStampWidth)); });
    }
    void TearDown() override {
        Process().trace.RemoveSink(sink_);
        Process().trace.SetFileEnabled(true);
        Process().trace.SetIsDebug(false);
    }

    // "dd/mm hh:nn:ss", a blank, ten characters of seconds and a blank.
    static constexpr std::size_t kStampWidth = 14 + 1 + 10 + 1;
    int sink_ = 0;
    std::vector<std::string> messages_;
};

TEST_F(TracedSessionTest, AStatusQueryTracesItsCommandAsExecuteDoes) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{DataReply("A\nB")});
    messages_.clear();
    s.GetResponse("S1");
    std::string traced;
    for (const std::string& m : messages_) traced += m + "|";
    const std::string status =
        "GetStatus: -> [ENQ]|WaitForReply t = 43200; timeout = 10|<-[STX]`@[ETX]#|"
        "WaitForReply (ready = True): <-[STX]`@[ETX]|ResponseComplete: [STX]`@[ETX]|"
        "GetStatus: <- pfError = 0; resultFlag = 3, STS1=60, STS2= 40|";
    EXPECT_EQ(traced, "GetResponse: S1|" + status + "Execute: -> S1|" + status +
                          "SEND -> [STX]S1[ETX]a|WaitForReply t = 43200; timeout = 10|"
                          "<-[STX]A[010]B[ETX][010]|WaitForReply (ready = True): "
                          "<-[STX]A[010]B[ETX]|ResponseComplete: [STX]A[010]B[ETX]|"
                          "GetResponse. After Execute (1), s = A[010]B[ETX]|"
                          "GetResponse. After Execute (2), s = A[010]B|GetResponse. UBound = 1|");
}

}  // namespace
}  // namespace corvid::session::testing
