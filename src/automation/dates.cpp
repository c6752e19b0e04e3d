#include "automation/dates.h"

#include <cmath>

#include "automation/clock.h"
#include "automation/vb_error.h"

namespace corvid::automation {
namespace {

// 1970-01-01 is day 25569 of the automation calendar.
constexpr long long kUnixEpochDay = 25569;

long long FloorDiv(long long a, long long b) {
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)));
}

// Days since 1970-01-01 of a proleptic Gregorian date (month 1..12).
long long DaysFromCivil(long long y, int m, int d) {
    y -= m <= 2;
    const long long era = FloorDiv(y, 400);
    const long long yoe = y - era * 400;
    const long long doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const long long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

void CivilFromDays(long long z, DateParts& out) {
    z += 719468;
    const long long era = FloorDiv(z, 146097);
    const long long doe = z - era * 146097;
    const long long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const long long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long long mp = (5 * doy + 2) / 153;
    const int d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    const int m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    out.year = static_cast<int>(yoe + era * 400 + (m <= 2));
    out.month = m;
    out.day = d;
}

// The value of calendar day `day` at `fraction` of the day, negative days counting their
// time forward as OLE dates do.
double Compose(double day, double fraction) { return day < 0 ? day - fraction : day + fraction; }

}  // namespace

Date DateSerial(int year, int month, int day) {
    const long long months = static_cast<long long>(year) * 12 + (month - 1);
    const long long y = FloorDiv(months, 12);
    const int m = static_cast<int>(months - y * 12) + 1;
    const long long days = DaysFromCivil(y, m, 1) + (day - 1) + kUnixEpochDay;
    return Date{static_cast<double>(days)};
}

Date TimeSerial(int hour, int minute, int second) {
    const long long seconds = hour * 3600LL + minute * 60LL + second;
    return Date{seconds / 86400.0};
}

Date CombineDateTime(Date date, Date time_of_day) {
    const double whole = std::floor(time_of_day.days);
    const double fraction = time_of_day.days - whole;
    return Date{Compose(std::trunc(date.days) + whole, fraction)};
}

DateParts SplitDate(Date value) {
    // Beyond about 2^31 years either way (or not a number) there is no day to split:
    // overflow, as a date out of range is in VB.
    if (!(std::fabs(value.days) < 7.8e11)) throw VbError::Standard(vb_errors::kOverflow);
    double day = std::trunc(value.days);
    long long seconds = std::llround(std::fabs(value.days - day) * 86400.0);
    if (seconds >= 86400) {
        seconds -= 86400;
        day += 1;
    }
    DateParts parts;
    CivilFromDays(static_cast<long long>(day) - kUnixEpochDay, parts);
    parts.hour = static_cast<int>(seconds / 3600);
    parts.minute = static_cast<int>(seconds / 60 % 60);
    parts.second = static_cast<int>(seconds % 60);
    return parts;
}

Date DateOnly(Date value) { return Date{std::trunc(value.days) + 0.0}; }

double TimeOfDaySeconds(Date value) {
    return std::fabs(value.days - std::trunc(value.days)) * 86400.0;
}

Date Now() { return CurrentClock().Now(); }

}  // namespace corvid::automation
