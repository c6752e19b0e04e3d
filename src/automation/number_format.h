// Number patterns of Format ("0", "#", ",", "." and literal text around the digits) and
// the locale's currency format.
#pragma once

#include <string>
#include <string_view>

#include "automation/decimal_digits.h"
#include "automation/locale_format.h"

namespace corvid::automation {

std::string FormatNumber(DecimalDigits value, std::string_view pattern, const LocaleFormat& locale);
std::string FormatCurrency(DecimalDigits value, const LocaleFormat& locale);

}  // namespace corvid::automation
