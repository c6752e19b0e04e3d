#include "automation/clock.h"

#include <gtest/gtest.h>

#include <cmath>

#include "automation/dates.h"
#include "support/fake_clock.h"

namespace corvid::automation {
namespace {

TEST(ClockTest, ReplaceInstallsAndReturnsThePrevious) {
    auto fake = std::make_shared<FakeClock>();
    fake->SetNow(CombineDateTime(DateSerial(2030, 6, 1), TimeSerial(8, 0, 0)));
    {
        ScopedClock scoped(fake);
        EXPECT_EQ(&CurrentClock(), fake.get());
        EXPECT_EQ(Now(), fake->Now());
        CurrentClock().SleepMilliseconds(250);
        EXPECT_FLOAT_EQ(fake->SecondsSinceMidnight(), 8 * 3600 + 0.25f);
        auto previous = ReplaceClock(nullptr);  // null puts a system clock back
        EXPECT_EQ(previous, fake);
        EXPECT_NE(&CurrentClock(), fake.get());
        ReplaceClock(fake);
    }
    EXPECT_NE(&CurrentClock(), fake.get());
}

TEST(SystemClockTest, TimerAndNowAgree) {
    auto clock = MakeSystemClock();
    const double before = clock->SecondsSinceMidnight();
    const double now = TimeOfDaySeconds(clock->Now());
    clock->SleepMilliseconds(30);
    const double after = clock->SecondsSinceMidnight();
    ASSERT_GE(before, 0);
    ASSERT_LT(after, 86400);
    if (after < before) GTEST_SKIP() << "midnight passed during the test";
    EXPECT_GE(after - before, 0.02);
    EXPECT_LT(after - before, 5);
    EXPECT_LT(std::fabs(now - before), 2);
    EXPECT_GT(SplitDate(clock->Now()).year, 2020);
}

}  // namespace
}  // namespace corvid::automation
