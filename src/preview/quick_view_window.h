// The window that shows a report. The report model works without one (showing it then only
// moves the text into its text box); a platform window attaches itself through this
// interface, either per report or for every new report through the process-wide factory.
#pragma once

#include <functional>
#include <memory>

namespace corvid::preview {

class lfQuickView;

class QuickViewWindow {
  public:
    virtual ~QuickViewWindow() = default;
    // Shows the report and returns when the person closes the window.
    virtual void ShowModal(lfQuickView& view) = 0;
};

// Makes the window for a new report; may return null (no window).
using QuickViewWindowFactory = std::function<std::shared_ptr<QuickViewWindow>()>;

QuickViewWindowFactory CurrentQuickViewWindowFactory();
// Replaces the factory; returns the previous one. An empty factory means no window.
QuickViewWindowFactory ReplaceQuickViewWindowFactory(QuickViewWindowFactory factory);

}  // namespace corvid::preview
