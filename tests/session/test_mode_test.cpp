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
    void Hide() override {}
    std::vector<std::string> shown;
};

class TestModeSession : public SessionTest {
  protected:
    void SetUp() override {
        Set("TestMode", "True");
        previous_ = preview::ReplaceQuickViewWindowFactory([this] { return window_; });
    }
    void TearDown() override {
        preview::ReplaceQuickViewWindowFactory(previous_);
        Process().testMode = false;
        Process().trace.SetIsDebug(false);
    }

    std::shared_ptr<RecordingWindow> window_ = std::make_shared<RecordingWindow>();
    preview::QuickViewWindowFactory previous_;
};

TEST_F(TestModeSession, CommandsGoToThePreviewShownAtClosing) {
    PrinterFiscal& s = Session();
    EXPECT_EQ(s.Execute("w"), 0);  // before Abrir nothing is kept
    // Whatever the host passes is never converted: a value that is no port number will do.
    s.Abrir([]() -> std::int16_t { throw automation::VbError::Standard(13); });
    s.outcome().pfError = pfPrinterError;
    EXPECT_EQ(s.Execute("w"), pfPrinterError);  // the current outcome, untouched
    s.ExecuteNoCheck("x y");
    s.SendDirect(std::string("\x02z"));
    EXPECT_EQ(s.GetResponse("S1"), Fields{"Ok"});
    EXPECT_TRUE(window_->shown.empty());
    s.Cerrar();
    EXPECT_EQ(line_->openedPort, 0);
    EXPECT_TRUE(line_->writes.empty());
    EXPECT_EQ(window_->shown, std::vector<std::string>{
                                  "w \r\nx y \r\nSendDirect: [STX]z \r\nGET RESPONSE: S1 \r\n"});
}

TEST_F(TestModeSession, ImmediateTraceIsShownWhenAPortCloses) {
    Set("TestMode", "False");
    Set("IsDebug", "True");
    Set("DebugInmediato", "True");
    PrinterFiscal& s = OpenSession();
    line_->blockAnswers.push_back(Reads{DataReply("A\nB")});
    s.GetResponse("S1");
    s.Cerrar();
    ASSERT_EQ(window_->shown.size(), 1u);
    // The query's command goes through the exchange, each step traced with its bytes.
    std::string trace = window_->shown[0].substr(window_->shown[0].find("GetResponse: S1"));
    for (std::size_t at; (at = trace.find(" \r\n")) != std::string::npos;)
        trace.replace(at, 3, "|");
    const std::string status =
        "GetStatus: -> [ENQ]|WaitForReply t = 43200; timeout = 10|<-[STX]`@[ETX]#|"
        "WaitForReply (ready = True): <-[STX]`@[ETX]|ResponseComplete: [STX]`@[ETX]|"
        "GetStatus: <- pfError = 0; resultFlag = 3, STS1=60, STS2= 40|";
    EXPECT_EQ(trace, "GetResponse: S1|" + status + "Execute: -> S1|" + status +
                         "SEND -> [STX]S1[ETX]a|WaitForReply t = 43200; timeout = 10|"
                         "<-[STX]A[010]B[ETX][010]|WaitForReply (ready = True): "
                         "<-[STX]A[010]B[ETX]|ResponseComplete: [STX]A[010]B[ETX]|"
                         "GetResponse. After Execute (1), s = A[010]B[ETX]|"
                         "GetResponse. After Execute (2), s = A[010]B|GetResponse. UBound = 1|");
}

}  // namespace
}  // namespace corvid::session::testing
