// Dates and times as the tool's users write them: "dd-mm-yyyy" (the form the printer prints)
// and "hh:mm:ss" (24-hour).
#pragma once

#include <optional>
#include <string_view>

#include "automation/variant.h"

namespace corvid::jobs {

// Empty unless the text is exactly dd-mm-yyyy and names a day of the calendar.
std::optional<automation::Date> ParseDayMonthYear(std::string_view text);
// Empty unless the text is exactly hh:mm:ss with hours 0-23, minutes and seconds 0-59.
// The result is a time of day (day 0).
std::optional<automation::Date> ParseTimeOfDay(std::string_view text);

}  // namespace corvid::jobs
