#include "automation/clock.h"

#include <gtest/gtest.h>

#include <cmath>

#include "automation/dates.h"

namespace corvid::automation {
namespace {

TEST(SystemClockTest, TimerAndNowAgree) {
    auto clock = MakeSystemClock();
    const double before = clock->SecondsSinceMidnight();
    const double now = TimeOfDaySeconds(clock->Now());
    clock->SleepMilliseconds(30);
    double after = clock->SecondsSinceMidnight();
    if (after < before) after += 86400;  // midnight passed
    EXPECT_GE(after - before, 0.02);
    EXPECT_LT(after - before, 5);
    EXPECT_LT(std::fabs(now - before), 2);
}

}  // namespace
}  // namespace corvid::automation
