#include "automation/clock.h"

#include <utility>

namespace corvid::automation {
namespace {

std::shared_ptr<Clock>& Installed() {
    static std::shared_ptr<Clock> clock;
    return clock;
}

}  // namespace

Clock& CurrentClock() {
    auto& clock = Installed();
    if (!clock) clock = MakeSystemClock();
    return *clock;
}

std::shared_ptr<Clock> ReplaceClock(std::shared_ptr<Clock> clock) {
    auto& installed = Installed();
    if (!installed) installed = MakeSystemClock();
    if (!clock) clock = MakeSystemClock();
    return std::exchange(installed, std::move(clock));
}

}  // namespace corvid::automation
