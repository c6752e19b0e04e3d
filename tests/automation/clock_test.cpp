#include "automation/clock.h"

#include <gtest/gtest.h>

#include <cmath>

#include "automation/dates.h"
#include "automation/fake_clock.h"

namespace corvid::automation {
namespace {

TEST(FakeClockTest, SleepingMovesTimeAndRollsOverMidnight) {
    FakeClock clock;
    clock.SetNow(CombineDateTime(DateSerial(2024, 12, 31), TimeSerial(23, 59, 59)));
    EXPECT_FLOAT_EQ(clock.SecondsSinceMidnight(), 86399.0f);
    int hooked = 0;
    clock.SetOnSleep([&](int ms) { hooked += ms; });
    clock.SleepMilliseconds(1600);
    EXPECT_FLOAT_EQ(clock.SecondsSinceMidnight(), 0.6f);
    const DateParts p = SplitDate(clock.Now());
    EXPECT_EQ(p.year, 2025);
    EXPECT_EQ(p.month, 1);
    EXPECT_EQ(p.day, 1);
    EXPECT_EQ(p.second, 1);  // 00:00:00.6 rounds up
    EXPECT_EQ(hooked, 1600);
    EXPECT_EQ(clock.sleep_calls(), 1);
    EXPECT_EQ(clock.slept_milliseconds(), 1600);
}

TEST(FakeClockTest, SettingSecondsKeepsTheDate) {
    FakeClock clock;
    clock.SetSecondsSinceMidnight(43200.5);
    EXPECT_FLOAT_EQ(clock.SecondsSinceMidnight(), 43200.5f);
    EXPECT_DOUBLE_EQ(clock.Now().days, DateSerial(2024, 1, 15).days + 43200.5 / 86400);
    clock.SetNow(Date{DateSerial(2020, 5, 1).days + 3600.25 / 86400});
    EXPECT_FLOAT_EQ(clock.SecondsSinceMidnight(), 3600.25f);
    clock.SetNow(Date{-1.25});  // before 1899-12-30 the time still counts forward
    EXPECT_FLOAT_EQ(clock.SecondsSinceMidnight(), 6 * 3600.0f);
    EXPECT_DOUBLE_EQ(clock.Now().days, -1.25);
}

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
