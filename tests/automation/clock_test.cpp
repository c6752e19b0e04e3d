#include "automation/clock.h"

#include <gtest/gtest.h>

#include <cmath>

#include "automation/dates.h"
#include "automation/replaceable.h"
#include "support/fake_clock.h"

namespace corvid::automation {
namespace {

TEST(ReplaceableTest, MakesItsValueOnFirstUseAndReturnsThePreviousOne) {
    int made = 0;
    Replaceable<int> value([&made] { return ++made * 10; });
    EXPECT_EQ(made, 0);
    EXPECT_EQ(value.Replace(5), 10);
    EXPECT_EQ(value.Get(), 5);
    EXPECT_EQ(made, 1);
}

TEST(ClockTest, NullPutsTheSystemClockBack) {
    auto fake = std::make_shared<FakeClock>();
    {
        ScopedClock scoped(fake);
        EXPECT_EQ(Now(), fake->Now());
        EXPECT_EQ(ReplaceClock(nullptr), fake);
        EXPECT_NE(&CurrentClock(), fake.get());
        EXPECT_GT(SplitDate(Now()).year, 2020);
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
    if (after < before) GTEST_SKIP() << "midnight passed during the test";
    EXPECT_GE(after - before, 0.02);
    EXPECT_LT(after - before, 5);
    EXPECT_LT(std::fabs(now - before), 2);
}

}  // namespace
}  // namespace corvid::automation
