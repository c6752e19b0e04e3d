#include "preview/quick_view_dialogs.h"

namespace corvid::preview {

// No desktop: every dialog answers as cancelled.
std::shared_ptr<QuickViewDialogs> MakePlatformQuickViewDialogs() {
    return std::make_shared<QuickViewDialogs>();
}

}  // namespace corvid::preview
