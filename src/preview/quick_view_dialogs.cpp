#include "preview/quick_view_dialogs.h"

#include <utility>

#include "automation/replaceable.h"

namespace corvid::preview {
namespace {

automation::Replaceable<std::shared_ptr<QuickViewDialogs>>& Slot() {
    static automation::Replaceable<std::shared_ptr<QuickViewDialogs>> dialogs(
        MakePlatformQuickViewDialogs);
    return dialogs;
}

}  // namespace

QuickViewDialogs& CurrentQuickViewDialogs() { return *Slot().Get(); }

std::shared_ptr<QuickViewDialogs> ReplaceQuickViewDialogs(
    std::shared_ptr<QuickViewDialogs> dialogs) {
    return Slot().Replace(std::move(dialogs));
}

}  // namespace corvid::preview
