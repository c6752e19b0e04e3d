#include "preview/quick_view_dialogs.h"

#include <utility>

namespace corvid::preview {
namespace {

std::shared_ptr<QuickViewDialogs>& Slot() {
    static std::shared_ptr<QuickViewDialogs> dialogs = MakePlatformQuickViewDialogs();
    return dialogs;
}

}  // namespace

QuickViewDialogs& CurrentQuickViewDialogs() { return *Slot(); }

std::shared_ptr<QuickViewDialogs> ReplaceQuickViewDialogs(
    std::shared_ptr<QuickViewDialogs> dialogs) {
    return std::exchange(Slot(), std::move(dialogs));
}

}  // namespace corvid::preview
