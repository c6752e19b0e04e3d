// "MaxWait": a host that prefers an error to a hang bounds how long one command may wait
// for a printer that has gone quiet. Without it a silent printer is asked for status for
// ever.
#include "session/session_fixture.h"

namespace corvid::session::testing {
namespace {

const char* const kGaveUp = "Tiempo m\xE1ximo de espera agotado";

// Thrown by the line once the session has waited longer than the test allows, so that a
// wait without end fails the test instead of hanging it.
struct StillAsking {};

class BoundedLine : public ScriptedLine {
  public:
    using ScriptedLine::ScriptedLine;
    bool WaitReadable(std::int16_t port, std::int32_t milliseconds) override {
        if (waits >= 20000) throw StillAsking{};  // 1000 s of slices
        return ScriptedLine::WaitReadable(port, milliseconds);
    }
};

class MaxWaitTest : public SessionTest {
  protected:
    MaxWaitTest() { line_ = printer_; }
    PrinterFiscal& OpenSilent(const char* timeOut, const char* maxWait, double start) {
        Set("TimeOut", timeOut);
        Set("MaxWait", maxWait);
        session_.reset();
        printer_->defaultStatus = Reads{StatusReply(0x60, 0x40)};
        printer_->writes.clear();
        PrinterFiscal& s = OpenSession();
        printer_->defaultStatus = Reads{};
        fakeClock_->SetSecondsSinceMidnight(start);
        return s;
    }
    double Now() const { return fakeClock_->SecondsSinceMidnight(); }

    std::shared_ptr<BoundedLine> printer_ = std::make_shared<BoundedLine>(*fakeClock_);
};

TEST_F(MaxWaitTest, ASilentPrinterEndsTheCommandOnceTheBoundIsSpent) {
    const struct {
        const char *name, *timeOut, *maxWait;
        double start, endMin, endMax;
        int blocks = 0;  // 1: the status is answered, the block is not
    } cases[] = {
        // Two whole waits and a third one cut short.
        {"bound spent", "2", "5", 1000, 1005, 1005.2},
        {"across midnight", "1", "4", 86398, 2, 2.2},
        {"long wait for the reply cut short", "10", "2,5", 1000, 1002.5, 1002.7, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        PrinterFiscal& s = OpenSilent(c.timeOut, c.maxWait, c.start);
        if (c.blocks > 0) {
            printer_->defaultStatus = Reads{StatusReply(0x60, 0x40)};
            printer_->blockAnswers = {Reads{}};
        }
        EXPECT_EQ(s.Execute("w"), pfCommError);
        EXPECT_EQ(s.outcome().DescripcionError, kGaveUp);
        EXPECT_EQ(printer_->BlocksWritten(), c.blocks);
        EXPECT_GE(Now(), c.endMin);
        EXPECT_LT(Now(), c.endMax);
    }
    // Each command has a bound of its own: after two seconds spent on a lone status request,
    // four silent seconds, then an answer.
    PrinterFiscal& s = OpenSilent("2", "5", 1000);
    s.GetStatus();
    printer_->statusAnswers = {Reads{}, Reads{}, Reads{StatusReply(0x60, 0x40)}};
    EXPECT_EQ(s.Execute("w"), 0);
    EXPECT_EQ(s.outcome().DescripcionError, "Ok");
}

}  // namespace
}  // namespace corvid::session::testing
