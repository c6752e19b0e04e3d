// Date patterns of Format: d, dd, m, mm, y, yy, yyyy, h, hh, n, nn, s, ss and literal text.
#pragma once

#include <string>
#include <string_view>

#include "automation/variant.h"

namespace corvid::automation {

// True when the pattern has date or time fields (any of d, m, y, h, n, s outside literals).
bool IsDatePattern(std::string_view pattern);
std::string FormatDate(Date value, std::string_view pattern);

}  // namespace corvid::automation
