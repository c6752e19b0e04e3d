// One line of the session trace file: the date and time as "dd/mm hh:nn:ss", a blank, the
// seconds since midnight right-aligned in 10 characters, a blank and the message.
#pragma once

#include <string>
#include <string_view>

#include "automation/variant.h"

namespace corvid::host {

std::string FormatTraceLine(automation::Date now, float seconds_since_midnight,
                            std::string_view message);

}  // namespace corvid::host
