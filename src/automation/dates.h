// Automation dates: days since 1899-12-30 as a double, the fraction being the time of day.
// Before 1899-12-30 the value is negative and its fraction still counts forward from
// midnight (-1.25 is 1899-12-29 06:00), as OLE dates do.
#pragma once

#include "automation/variant.h"

namespace corvid::automation {

struct DateParts {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

// Midnight of the given day. Months and days out of range roll over as VB's DateSerial
// does (month 13 is January of the next year, day 0 the last day of the month before).
// The year is taken as given (no two-digit year window).
Date DateSerial(int year, int month, int day);
// A time of day as a fraction of a day; values out of range roll over (25:00 is 1.0417).
Date TimeSerial(int hour, int minute, int second);
// A date and a time of day joined, right for dates before 1899-12-30 too.
Date CombineDateTime(Date date, Date time_of_day);
// Date and time fields, rounded to the nearest second. Overflow (error 6) for a value too
// far out (about 2^31 years) or not a number.
DateParts SplitDate(Date value);
// The date part only (midnight of the same day).
Date DateOnly(Date value);
// Seconds since midnight of the time part.
double TimeOfDaySeconds(Date value);

// The current local date and time from the process-wide clock.
Date Now();

}  // namespace corvid::automation
