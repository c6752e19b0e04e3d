#include "session/process_state.h"

#include "host/debug_view.h"
#include "host/user_prompts.h"
#include "preview/quick_view.h"

namespace corvid::session {
namespace {

// The trace's on-screen view is a report preview 80 columns wide.
class QuickViewDebugView : public host::DebugView {
  public:
    QuickViewDebugView() { view_.SetReportWidth(80); }
    void Add(const std::string& line) override { view_.Add(line, 0); }
    void ShowModal() override { view_.ShowModal(); }

  private:
    preview::lfQuickView view_;
};

}  // namespace

ProcessState::ProcessState() {
    trace.SetDebugViewFactory([] { return std::make_shared<QuickViewDebugView>(); });
    host::SetPromptEcho([this](const std::string& message) { trace.Trace(message); });
}

ProcessState& Process() {
    static ProcessState state;
    return state;
}

}  // namespace corvid::session
