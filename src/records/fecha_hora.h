// The printer's date and time fields (yymmdd, hhmm or hhmmss) as an automation date.
#pragma once

#include <string_view>

#include "automation/variant.h"

namespace corvid::records {

// The year is 2000 plus the first two digits. An empty date gives a time on the zero
// date. Never raises for a bad date or time: the current date and time stand in.
automation::Date ParseFechaHora(std::string_view fecha, std::string_view hora);

}  // namespace corvid::records
