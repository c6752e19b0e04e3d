#include "host/message_pump.h"

#include <utility>

#include "automation/replaceable.h"

namespace corvid::host {
namespace {

automation::Replaceable<std::function<void()>>& HostYieldHook() {
    static automation::Replaceable<std::function<void()>> hook;
    return hook;
}

}  // namespace

void YieldToHost() {
    // A copy, so a hook that replaces itself while running stays alive until it returns.
    const auto hook = HostYieldHook().Get();
    if (hook) {
        hook();
    } else {
        PumpPlatformMessages();
    }
}

std::function<void()> SetHostYieldHook(std::function<void()> hook) {
    return HostYieldHook().Replace(std::move(hook));
}

}  // namespace corvid::host
