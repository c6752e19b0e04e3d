#include "host/message_pump.h"

#include <utility>

namespace corvid::host {
namespace {

std::function<void()>& HostYieldHook() {
    static std::function<void()> hook;
    return hook;
}

}  // namespace

void YieldToHost() {
    // A copy, so a hook that replaces itself while running stays alive until it returns.
    auto hook = HostYieldHook();
    if (hook) {
        hook();
    } else {
        PumpPlatformMessages();
    }
}

std::function<void()> SetHostYieldHook(std::function<void()> hook) {
    return std::exchange(HostYieldHook(), std::move(hook));
}

}  // namespace corvid::host
