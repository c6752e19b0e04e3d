#include "automation/dates.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/vb_error_testing.h"

namespace corvid::automation {
namespace {

void ExpectParts(Date value, int y, int mo, int d, int h, int mi, int s) {
    const DateParts p = SplitDate(value);
    EXPECT_EQ(p.year, y);
    EXPECT_EQ(p.month, mo);
    EXPECT_EQ(p.day, d);
    EXPECT_EQ(p.hour, h);
    EXPECT_EQ(p.minute, mi);
    EXPECT_EQ(p.second, s);
}

TEST(DatesTest, DateSerialCountsFromTheAutomationEpoch) {
    EXPECT_EQ(DateSerial(1899, 12, 30).days, 0);
    EXPECT_EQ(DateSerial(1900, 1, 1).days, 2);
    EXPECT_EQ(DateSerial(2000, 1, 1).days, 36526);
    EXPECT_EQ(DateSerial(2024, 2, 29).days, 45351);
    EXPECT_EQ(DateSerial(1899, 12, 29).days, -1);
    EXPECT_EQ(DateSerial(1800, 3, 1).days, -36463);
}

TEST(DatesTest, DateSerialRollsMonthsAndDaysOver) {
    EXPECT_EQ(DateSerial(2023, 13, 1), DateSerial(2024, 1, 1));
    EXPECT_EQ(DateSerial(2024, 3, 0), DateSerial(2024, 2, 29));
    EXPECT_EQ(DateSerial(2023, 3, 0), DateSerial(2023, 2, 28));
    EXPECT_EQ(DateSerial(2024, 0, 15), DateSerial(2023, 12, 15));
    EXPECT_EQ(DateSerial(2024, -13, 1), DateSerial(2022, 11, 1));
    EXPECT_EQ(DateSerial(2024, 1, 32), DateSerial(2024, 2, 1));
}

TEST(DatesTest, TimeSerialIsAFractionOfADay) {
    EXPECT_DOUBLE_EQ(TimeSerial(12, 0, 0).days, 0.5);
    EXPECT_DOUBLE_EQ(TimeSerial(6, 0, 0).days, 0.25);
    EXPECT_DOUBLE_EQ(TimeSerial(0, 90, 0).days, 1.5 / 24);
    EXPECT_DOUBLE_EQ(TimeSerial(25, 0, 0).days, 25.0 / 24);
}

TEST(DatesTest, SplitRoundTripsOverManyDays) {
    for (int year : {1700, 1899, 1900, 1999, 2000, 2024, 2100, 9999}) {
        for (int month = 1; month <= 12; ++month) {
            for (int day : {1, 15, 28}) {
                const Date value =
                    CombineDateTime(DateSerial(year, month, day), TimeSerial(23, 59, 59));
                ExpectParts(value, year, month, day, 23, 59, 59);
            }
        }
    }
    ExpectParts(DateSerial(2024, 2, 29), 2024, 2, 29, 0, 0, 0);
    ExpectParts(Date{DateSerial(1900, 3, 1).days - 1}, 1900, 2, 28, 0, 0, 0);  // no 29th
}

TEST(DatesTest, NegativeDatesKeepTheirTimeForward) {
    ExpectParts(Date{-1.25}, 1899, 12, 29, 6, 0, 0);
    ExpectParts(Date{-0.5}, 1899, 12, 30, 12, 0, 0);
    ExpectParts(Date{-2.75}, 1899, 12, 28, 18, 0, 0);
    EXPECT_DOUBLE_EQ(CombineDateTime(DateSerial(1899, 12, 29), TimeSerial(6, 0, 0)).days, -1.25);
    EXPECT_DOUBLE_EQ(CombineDateTime(DateSerial(1899, 12, 28), TimeSerial(18, 0, 0)).days, -2.75);
    EXPECT_DOUBLE_EQ(CombineDateTime(Date{-1.75}, TimeSerial(6, 0, 0)).days, -1.25);
    EXPECT_DOUBLE_EQ(TimeOfDaySeconds(Date{-1.25}), 6 * 3600.0);
    EXPECT_EQ(DateOnly(Date{-1.25}).days, -1);
}

TEST(DatesTest, SplitRoundsToTheNearestSecond) {
    const double day = DateSerial(2024, 12, 31).days;
    ExpectParts(Date{day + 0.4999 / 86400}, 2024, 12, 31, 0, 0, 0);
    ExpectParts(Date{day + 86399.6 / 86400}, 2025, 1, 1, 0, 0, 0);
    ExpectParts(Date{-1.9999999999}, 1899, 12, 30, 0, 0, 0);
}

TEST(DatesTest, AValueWithNoDayToSplitOverflows) {
    using test_support::ErrorNumberOf;
    for (const double days : {1e300, -1e12, std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(ErrorNumberOf([&] { SplitDate(Date{days}); }), 6) << days;
    }
    // The far end of what still splits: year 9999 and the year 100 are ordinary.
    ExpectParts(DateSerial(9999, 12, 31), 9999, 12, 31, 0, 0, 0);
    ExpectParts(DateSerial(100, 1, 1), 100, 1, 1, 0, 0, 0);
}

TEST(DatesTest, CombineCarriesWholeDaysOfTime) {
    ExpectParts(CombineDateTime(DateSerial(2024, 2, 28), TimeSerial(25, 30, 0)), 2024, 2, 29, 1, 30,
                0);
    ExpectParts(CombineDateTime(Date{DateSerial(2024, 2, 28).days + 0.9}, TimeSerial(1, 0, 0)),
                2024, 2, 28, 1, 0, 0);
}

}  // namespace
}  // namespace corvid::automation
