#include "automation/vb_error.h"
#include "host/trace_log.h"
#include "preview/quick_view.h"
#include "preview/quick_view_window.h"
#include "session/process_state.h"
#include "session/session_fixture.h"

namespace corvid::session::testing {
namespace {

// Stands in for the preview window: remembers what it was shown.
class RecordingWindow : public preview::QuickViewWindow {
  public:
    void Show(preview::lfQuickView& view, bool) override {
        view.LoadText();
        shown.push_back(view.textBox().text());
    }
    std::vector<std::string> shown;
    void Hide() override {}
};

class TestModeSession : public SessionTest {
  protected:
    void SetUp() override {
        Set("TestMode", "True");
        window_ = std::make_shared<RecordingWindow>();
        previous_ = preview::ReplaceQuickViewWindowFactory([this] { return window_; });
    }
    void TearDown() override {
        preview::ReplaceQuickViewWindowFactory(previous_);
        Process().testMode = false;
    }

    std::shared_ptr<RecordingWindow> window_;
    preview::QuickViewWindowFactory previous_;
};

TEST_F(TestModeSession, CommandsGoToThePreviewShownAtClosing) {
    PrinterFiscal& s = Session();
    EXPECT_TRUE(s.testMode());
    // Whatever the host passes is never converted: a value that is no port number will do.
    s.Abrir([]() -> std::int16_t { throw automation::VbError::Standard(13); });
    EXPECT_EQ(line_->openedPort, 0);  // no port is opened
    s.outcome().pfError = pfPrinterError;
    EXPECT_EQ(s.Execute("w"), pfPrinterError);  // the current outcome, untouched
    s.ExecuteNoCheck("x y");
    s.SendDirect(
        std::string("\x02"
                    "z",
                    2));
    EXPECT_EQ(s.GetResponse("S1"), Fields{"Ok"});
    EXPECT_TRUE(line_->writes.empty());
    EXPECT_TRUE(window_->shown.empty());

    s.Cerrar();
    ASSERT_EQ(window_->shown.size(), 1u);
    EXPECT_EQ(window_->shown[0], "w \r\nx y \r\nSendDirect: [STX]z \r\nGET RESPONSE: S1 \r\n");
}

TEST_F(TestModeSession, WithoutAbrirNothingIsRecordedOrShown) {
    PrinterFiscal& s = Session();
    EXPECT_EQ(s.Execute("w"), 0);
    s.Cerrar();
    EXPECT_TRUE(window_->shown.empty());
    EXPECT_TRUE(line_->writes.empty());
}

}  // namespace
}  // namespace corvid::session::testing

namespace corvid::session::testing {
namespace {

TEST_F(TestModeSession, ImmediateTraceIsShownWhenAPortCloses) {
    Set("TestMode", "False");
    Set("IsDebug", "True");
    Set("DebugInmediato", "True");
    PrinterFiscal& s = OpenSession();
    s.Execute("w");
    s.Cerrar();
    Process().trace.SetIsDebug(false);
    ASSERT_EQ(window_->shown.size(), 1u);
    EXPECT_NE(window_->shown[0].find("Execute: -> w \r\n"), std::string::npos);
    EXPECT_NE(window_->shown[0].find(" <- ACK \r\n"), std::string::npos);
}

}  // namespace
}  // namespace corvid::session::testing
