#include <algorithm>

#include "host/trace_log.h"
#include "session/process_state.h"
#include "session/session_fixture.h"

namespace corvid::session::testing {
namespace {

// Collects the messages of the session trace (without the time stamps).
class TracedSessionTest : public SessionTest {
  protected:
    void SetUp() override {
        Set("IsDebug", "True");
        auto& trace = Process().trace;
        trace.SetFileEnabled(false);
        sink_ = trace.AddSink(
            [this](const std::string& line) { messages_.push_back(line.substr(kStampWidth)); });
    }
    void TearDown() override {
        auto& trace = Process().trace;
        trace.RemoveSink(sink_);
        trace.SetFileEnabled(true);
        trace.SetIsDebug(false);
    }

    // "dd/mm hh:nn:ss", a blank, ten characters of seconds and a blank.
    static constexpr std::size_t kStampWidth = 14 + 1 + 10 + 1;
    int sink_ = 0;
    std::vector<std::string> messages_;
};

TEST_F(TracedSessionTest, AnAcceptedCommandLeavesTheseLines) {
    PrinterFiscal& s = OpenSession();
    messages_.clear();
    s.Execute("w");
    const std::vector<std::string> expected{
        "Execute: -> w",
        "GetStatus: -> [ENQ]",
        "WaitForReply t = 43200; timeout = 10",
        "<-[STX]`@[ETX]#",
        "WaitForReply (ready = True): <-[STX]`@[ETX]",
        "ResponseComplete: [STX]`@[ETX]",
        "GetStatus: <- pfError = 0; resultFlag = 3, STS1=60, STS2= 40",
        "SEND -> [STX]w[ETX]t",
        "WaitForReply t = 43200; timeout = 10",
        "<-[ACK]",
        " <- ACK",
    };
    EXPECT_EQ(messages_, expected);
}

TEST_F(TracedSessionTest, NakAndTimeOutAreTraced) {
    Set("TimeOut", "1");
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{std::string(1, char(NAK))});
    line_->blockAnswers.push_back(Reads{std::string("\x02partial")});
    for (int i = 0; i < 6; ++i) line_->blockAnswers.push_back(Reads{});
    messages_.clear();
    s.Execute("w");
    auto has = [this](const std::string& message) {
        return std::count(messages_.begin(), messages_.end(), message);
    };
    EXPECT_EQ(has(" <- NAK"), 1);
    EXPECT_EQ(has("WaitForReply (ready = False): <-[STX]partial"), 1);
    EXPECT_EQ(has("TIMEOUT!"), 6);
    EXPECT_EQ(has("WaitForReply Failed... COMM ERROR?"), 6);
    EXPECT_EQ(has("ResponseComplete: [STX]partial"), 1);
}

TEST_F(TracedSessionTest, QueriesTraceTheirSteps) {
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{DataReply("A\nB")});
    messages_.clear();
    s.GetResponse("S1");
    EXPECT_EQ(messages_.front(), "GetResponse: S1");
    EXPECT_EQ(messages_[messages_.size() - 3], "GetResponse. After Execute (1), s = A[010]B[ETX]");
    EXPECT_EQ(messages_[messages_.size() - 2], "GetResponse. After Execute (2), s = A[010]B");
    EXPECT_EQ(messages_.back(), "GetResponse. UBound = 1");

    Set("TimeOut", "1");
    PrinterFiscal other(line_);
    other.SetSerialPrinter("Z1F0000001");
    other.Abrir(1);
    line_->statusAnswers.push_back(Reads{});
    messages_.clear();
    EXPECT_EQ(other.GetResponse("S1"), Fields{"pfError"});
    EXPECT_EQ(messages_.back(), "@GetResponse pfError = [001]");
}

}  // namespace
}  // namespace corvid::session::testing
