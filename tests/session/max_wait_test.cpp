// "MaxWait": a host that prefers an error to a hang bounds how long one command may wait
// for a printer that has gone quiet. Without it a silent printer is asked for status for
// ever.
#include <functional>

#include "session/session_fixture.h"

namespace corvid::session::testing {
namespace {

const std::string kEnq(1, char(ENQ));
const char* const kGaveUp = "Tiempo m\xE1ximo de espera agotado";

// Thrown by the line once the session has asked for status, or waited, longer than the
// test allows, so that a wait without end fails the test instead of hanging it.
struct StillAsking {};

class BoundedLine : public ScriptedLine {
  public:
    using ScriptedLine::ScriptedLine;
    int enqLimit = 200;
    std::function<void()> onEnq;
    std::int32_t Write(std::int16_t port, std::string_view data) override {
        if (data == kEnq && Count(kEnq) >= enqLimit) throw StillAsking{};
        if (data == kEnq && onEnq) onEnq();
        return ScriptedLine::Write(port, data);
    }
    bool WaitReadable(std::int16_t port, std::int32_t milliseconds) override {
        if (waits >= 20000) throw StillAsking{};  // 1000 s of slices
        return ScriptedLine::WaitReadable(port, milliseconds);
    }
};

class MaxWaitTest : public SessionTest {
  protected:
    MaxWaitTest() : printer_(std::make_shared<BoundedLine>(*fakeClock_)) { line_ = printer_; }

    PrinterFiscal& OpenOnSilentPrinter() {
        PrinterFiscal& s = OpenSession();
        printer_->defaultStatus = Reads{};
        return s;
    }
    double Now() const { return fakeClock_->SecondsSinceMidnight(); }

    std::shared_ptr<BoundedLine> printer_;
};

TEST_F(MaxWaitTest, WithoutABoundASilentPrinterIsAskedForStatusForEver) {
    for (const char* setting : {"", "0", "-3"}) {
        Set("TimeOut", "1");
        Set("MaxWait", setting);
        session_.reset();
        printer_->writes.clear();
        PrinterFiscal& s = OpenOnSilentPrinter();
        printer_->enqLimit = 50;
        const double start = Now();
        EXPECT_THROW(s.Execute("w"), StillAsking) << "MaxWait=" << setting;
        EXPECT_EQ(printer_->BlocksWritten(), 0);
        EXPECT_GE(Now() - start, 49.0);
        printer_->defaultStatus = Reads{StatusReply(0x60, 0x40)};
        printer_->enqLimit = 200;
    }
}

TEST_F(MaxWaitTest, ASilentPrinterEndsTheCommandOnceTheBoundIsSpent) {
    Set("TimeOut", "2");
    Set("MaxWait", "5");
    PrinterFiscal& s = OpenOnSilentPrinter();
    const double start = Now();
    EXPECT_EQ(s.Execute("w"), pfCommError);
    EXPECT_EQ(s.outcome().pfError, pfCommError);
    EXPECT_EQ(s.outcome().DescripcionError, kGaveUp);
    // Two whole waits and a third one cut short; no block went out.
    EXPECT_EQ(printer_->Count(kEnq), 3);
    EXPECT_EQ(printer_->BlocksWritten(), 0);
    EXPECT_GE(Now() - start, 5.0);
    EXPECT_LT(Now() - start, 5.2);

    // A lone status request outside a command keeps its own time-out.
    const double before = Now();
    s.GetStatus();
    EXPECT_GE(Now() - before, 2.0);

    // The next command has a bound of its own: four silent seconds, then an answer.
    printer_->statusAnswers = {Reads{}, Reads{}, Reads{StatusReply(0x60, 0x40)}};
    EXPECT_EQ(s.Execute("w"), 0);
    EXPECT_EQ(s.outcome().DescripcionError, "Ok");
}

TEST_F(MaxWaitTest, TheBoundCutsALongWaitForTheReplyShort) {
    Set("TimeOut", "10");
    Set("MaxWait", "2,5");
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{});
    const double start = Now();
    EXPECT_EQ(s.Execute("S1"), pfCommError);
    EXPECT_EQ(s.outcome().DescripcionError, kGaveUp);
    EXPECT_EQ(printer_->BlocksWritten(), 1);
    EXPECT_LT(Now() - start, 2.7);
}

TEST_F(MaxWaitTest, TheBoundHoldsAcrossMidnight) {
    Set("TimeOut", "1");
    Set("MaxWait", "4");
    PrinterFiscal& s = OpenOnSilentPrinter();
    fakeClock_->SetSecondsSinceMidnight(86398.0);
    EXPECT_EQ(s.Execute("w"), pfCommError);
    EXPECT_EQ(s.outcome().DescripcionError, kGaveUp);
    EXPECT_GE(Now(), 2.0);
    EXPECT_LT(Now(), 2.2);
}

TEST_F(MaxWaitTest, AClockSetBackALittleDoesNotEndTheWait) {
    Set("TimeOut", "1");
    Set("MaxWait", "4");
    PrinterFiscal& s = OpenOnSilentPrinter();
    fakeClock_->SetSecondsSinceMidnight(50000.0);
    printer_->onEnq = [this] {
        fakeClock_->SetSecondsSinceMidnight(49998.0);
        printer_->onEnq = nullptr;
    };
    EXPECT_EQ(s.Execute("w"), pfCommError);
    EXPECT_EQ(s.outcome().DescripcionError, kGaveUp);
    EXPECT_GE(Now(), 50004.0);
}

TEST_F(MaxWaitTest, ACommandThatSucceedsInTimeIsNotTouched) {
    Set("TimeOut", "1");
    Set("MaxWait", "3");
    PrinterFiscal& s = OpenSession();
    // Two silent status requests and a NAK, all within the bound.
    printer_->statusAnswers = {Reads{}, Reads{}};
    printer_->blockAnswers.push_back(Reads{std::string(1, char(NAK))});
    EXPECT_EQ(s.Execute("w"), 0);
    EXPECT_EQ(s.outcome().resultFlag, ACK);
    EXPECT_EQ(printer_->BlocksWritten(), 2);
}

}  // namespace
}  // namespace corvid::session::testing
