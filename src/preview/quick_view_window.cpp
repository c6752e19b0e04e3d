#include "preview/quick_view_window.h"

#include <mutex>
#include <utility>

namespace corvid::preview {
namespace {

std::mutex& Guard() {
    static std::mutex guard;
    return guard;
}

QuickViewWindowFactory& Slot() {
    static QuickViewWindowFactory factory;
    return factory;
}

}  // namespace

QuickViewWindowFactory CurrentQuickViewWindowFactory() {
    std::lock_guard lock(Guard());
    return Slot();
}

QuickViewWindowFactory ReplaceQuickViewWindowFactory(QuickViewWindowFactory factory) {
    std::lock_guard lock(Guard());
    return std::exchange(Slot(), std::move(factory));
}

}  // namespace corvid::preview
