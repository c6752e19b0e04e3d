#include "automation/dates.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <string>

#include "support/outcome_table.h"

namespace corvid::automation {
namespace {

std::string Parts(Date value) {
    const DateParts p = SplitDate(value);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", p.year, p.month, p.day,
                  p.hour, p.minute, p.second);
    return text;
}

TEST(DatesTest, SerialsCountFromTheAutomationEpochAndRollOver) {
    test_support::ExpectNumbers(
        {NUMBER_IS(DateSerial(1899, 12, 30).days, 0),
         NUMBER_IS(DateSerial(2024, 2, 29).days, 45351),
         NUMBER_IS(DateSerial(1800, 3, 1).days, -36463),
         NUMBER_IS(DateSerial(2023, 13, 1).days, DateSerial(2024, 1, 1).days),

         NUMBER_IS(DateSerial(2024, 3, 0).days, DateSerial(2024, 2, 29).days),

         NUMBER_IS(CombineDateTime(DateSerial(1899, 12, 28), TimeSerial(18, 0, 0)).days, -2.75),
         NUMBER_IS(TimeOfDaySeconds(Date{-1.25}), 6 * 3600.0),
         NUMBER_IS(DateOnly(Date{-1.25}).days, -1)});
}

// Negative dates keep their time forward; splitting rounds to the nearest second.
TEST(DatesTest, SplitGivesTheCalendarDateAndTime) {
    test_support::ExpectTexts(
        {TEXT_IS(Parts(Date{DateSerial(1900, 3, 1).days - 1}), "1900-02-28 00:00:00"),
         TEXT_IS(Parts(Date{DateSerial(2000, 3, 1).days - 1}), "2000-02-29 00:00:00"),
         TEXT_IS(Parts(Date{-1.25}), "1899-12-29 06:00:00"),
         TEXT_IS(Parts(Date{DateSerial(2024, 12, 31).days + 86399.6 / 86400}),
                 "2025-01-01 00:00:00"),
         TEXT_IS(Parts(Date{-1.9999999999}), "1899-12-30 00:00:00"),

         TEXT_IS(Parts(CombineDateTime(DateSerial(2024, 2, 28), TimeSerial(25, 30, 0))),
                 "2024-02-29 01:30:00"),
         TEXT_RAISES(Parts(Date{1e300}), 6),
         TEXT_RAISES(Parts(Date{std::numeric_limits<double>::quiet_NaN()}), 6)});
    for (int month = 1; month <= 12; ++month) {  // the last second of a month's 28th day
        char expected[32];
        std::snprintf(expected, sizeof expected, "2100-%02d-28 23:59:59", month);
        EXPECT_EQ(Parts(CombineDateTime(DateSerial(2100, month, 28), TimeSerial(23, 59, 59))),
                  expected);
    }
}

}  // namespace
}  // namespace corvid::automation
