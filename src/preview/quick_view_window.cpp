#include "preview/quick_view_window.h"

#include "automation/replaceable.h"

namespace corvid::preview {
namespace {

automation::Replaceable<QuickViewWindowFactory>& Factory() {
    static automation::Replaceable<QuickViewWindowFactory> factory;
    return factory;
}

}  // namespace

QuickViewWindowFactory CurrentQuickViewWindowFactory() { return Factory().Get(); }

QuickViewWindowFactory ReplaceQuickViewWindowFactory(QuickViewWindowFactory factory) {
    return Factory().Replace(std::move(factory));
}

}  // namespace corvid::preview
