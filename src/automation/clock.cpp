#include "automation/clock.h"

#include <utility>

#include "automation/replaceable.h"

namespace corvid::automation {
namespace {

Replaceable<std::shared_ptr<Clock>>& Installed() {
    static Replaceable<std::shared_ptr<Clock>> clock(MakeSystemClock);
    return clock;
}

}  // namespace

Clock& CurrentClock() { return *Installed().Get(); }

std::shared_ptr<Clock> ReplaceClock(std::shared_ptr<Clock> clock) {
    return Installed().Replace(clock ? std::move(clock) : MakeSystemClock());
}

}  // namespace corvid::automation
