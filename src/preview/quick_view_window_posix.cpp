#include "preview/platform_quick_view_window.h"

namespace corvid::preview {

// No desktop here: reports shown go to the report sink.
void InstallPlatformQuickViewWindow() {}

}  // namespace corvid::preview
