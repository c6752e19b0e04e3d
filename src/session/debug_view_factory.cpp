// The trace's on-screen view is a report preview 80 columns wide.
#include "host/debug_view.h"
#include "host/trace_log.h"
#include "preview/quick_view.h"
#include "session/process_state.h"

namespace corvid::session {

namespace {

class QuickViewDebugView : public host::DebugView {
  public:
    QuickViewDebugView() { view_.SetReportWidth(80); }
    void Add(const std::string& line) override { view_.Add(line, 0); }
    void ShowModal() override { view_.ShowModal(); }

  private:
    preview::lfQuickView view_;
};

}  // namespace

void InstallDebugViewFactory() {
    host::TraceLog::Process().SetDebugViewFactory(
        [] { return std::make_shared<QuickViewDebugView>(); });
}

}  // namespace corvid::session
