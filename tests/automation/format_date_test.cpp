#include <gtest/gtest.h>

#include "automation/dates.h"
#include "automation/format.h"

namespace corvid::automation {
namespace {

const Date kSample = CombineDateTime(DateSerial(2024, 3, 5), TimeSerial(14, 7, 9));

TEST(FormatDateTest, PrinterAndReportPictures) {
    EXPECT_EQ(Format(kSample, "dd-mm-yyyy"), "05-03-2024");
    EXPECT_EQ(Format(kSample, "dd-mm-yyyy hh:nn"), "05-03-2024 14:07");
    EXPECT_EQ(Format(kSample, "dd/mm hh:nn:ss"), "05/03 14:07:09");
    EXPECT_EQ(Format(kSample, "ddmmyy"), "050324");
    EXPECT_EQ(Format(kSample, "hhnnss"), "140709");
    EXPECT_EQ(Format(kSample, "yymmdd"), "240305");
    EXPECT_EQ(Format(kSample, "d/m/yy h:n:s"), "5/3/24 14:7:9");
    EXPECT_EQ(Format(kSample, "DD-MM-YYYY"), "05-03-2024");
}

TEST(FormatDateTest, MonthLettersAfterHoursOrBeforeSecondsAreMinutes) {
    EXPECT_EQ(Format(kSample, "hh:mm"), "14:07");
    EXPECT_EQ(Format(kSample, "h:mm"), "14:07");
    EXPECT_EQ(Format(kSample, "mm:ss"), "07:09");
    EXPECT_EQ(Format(kSample, "dd/mm hh:mm"), "05/03 14:07");
    EXPECT_EQ(Format(kSample, "mm/dd hh"), "03/05 14");
}

TEST(FormatDateTest, YearsDaysAndLiterals) {
    EXPECT_EQ(Format(DateSerial(2005, 1, 9), "yy"), "05");
    EXPECT_EQ(Format(DateSerial(1999, 12, 31), "yyyy"), "1999");
    EXPECT_EQ(Format(DateSerial(2024, 2, 1), "y"), "32");  // day of the year
    EXPECT_EQ(Format(kSample, "\"at\" hh\\h"), "at 14h");
    EXPECT_EQ(Format(Date{-1.25}, "dd-mm-yyyy hh:nn"), "29-12-1899 06:00");
}

TEST(FormatDateTest, NumbersAndNumericTextsAreDates) {
    EXPECT_EQ(Format(45356.5, "dd-mm-yyyy hh:nn"), "05-03-2024 12:00");
    EXPECT_EQ(Format(std::int32_t{2}, "dd-mm-yyyy"), "01-01-1900");
    EXPECT_EQ(Format(std::string("45356.25"), "hhnnss"), "060000");
    EXPECT_EQ(Format(std::string("not a date"), "dd-mm-yyyy"), "not a date");
}

TEST(FormatDateTest, PrinterDatesRoundTrip) {
    // Dates the printer sends as yymmdd and hhmmss come back unchanged.
    for (int day = 1; day <= 366; day += 7) {
        const Date date =
            CombineDateTime(DateSerial(2024, 1, day), TimeSerial(day % 24, day % 60, 59));
        const std::string yymmdd = Format(date, "yymmdd");
        const std::string hhnnss = Format(date, "hhnnss");
        const Date back = CombineDateTime(
            DateSerial(2000 + std::stoi(yymmdd.substr(0, 2)), std::stoi(yymmdd.substr(2, 2)),
                       std::stoi(yymmdd.substr(4, 2))),
            TimeSerial(std::stoi(hhnnss.substr(0, 2)), std::stoi(hhnnss.substr(2, 2)),
                       std::stoi(hhnnss.substr(4, 2))));
        EXPECT_NEAR(back.days, date.days, 1e-9) << yymmdd << " " << hhnnss;
    }
}

}  // namespace
}  // namespace corvid::automation
