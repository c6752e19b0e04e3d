// The window that shows a report. The report model works without one (showing it then hands
// the text to the report sink, see report_sink.h); a platform window attaches itself through
// this interface, either per report or for every new report through the process-wide factory.
#pragma once

#include <functional>
#include <memory>

namespace corvid::preview {

class lfQuickView;

class QuickViewWindow {
  public:
    virtual ~QuickViewWindow() = default;
    // Shows the report. Modal: returns when the person closes or hides the window (the
    // window runs its own message loop); modeless: returns at once, the host's loop runs it.
    virtual void Show(lfQuickView& view, bool modal) = 0;
    // Hides the window; a modal Show then returns.
    virtual void Hide() = 0;
};

// Makes the window for a new report; may return null (no window).
using QuickViewWindowFactory = std::function<std::shared_ptr<QuickViewWindow>()>;

QuickViewWindowFactory CurrentQuickViewWindowFactory();
// Replaces the factory; returns the previous one. An empty factory means no window.
QuickViewWindowFactory ReplaceQuickViewWindowFactory(QuickViewWindowFactory factory);

}  // namespace corvid::preview
