#include "preview/quick_view_window.h"

#include "preview/replaceable.h"

namespace corvid::preview {
namespace {

Replaceable<QuickViewWindowFactory>& Factory() {
    static Replaceable<QuickViewWindowFactory> factory;
    return factory;
}

}  // namespace

QuickViewWindowFactory CurrentQuickViewWindowFactory() { return Factory().Get(); }

QuickViewWindowFactory ReplaceQuickViewWindowFactory(QuickViewWindowFactory factory) {
    return Factory().Replace(std::move(factory));
}

}  // namespace corvid::preview
