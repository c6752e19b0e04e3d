// Format(value, pattern): one formatter for numbers and dates, as VB's Format.
//
// Number patterns: "0" a digit, zero filled; "#" a digit only if significant; "," between
// digit placeholders groups thousands; "." the locale's decimal symbol; other characters
// before or after the digits are copied. The integer part is never cut; the value is
// rounded half away from zero to the pattern's decimals; a negative value gets a leading
// "-" (also when it rounds to zero, as VB does: "-0"). "Currency" is the locale's currency
// format. An empty pattern gives CStr.
//
// Date patterns (any of d, m, y, h, n, s): "d"/"dd" day, "m"/"mm" month (minutes right after
// "h"/"hh" or right before "s"/"ss"), "n"/"nn" minutes, "yy"/"yyyy" year, "h"/"hh" hours,
// "s"/"ss" seconds; other characters are copied as they stand.
//
// Text patterns: ">" upper case, "<" lower case, of the value's text.
//
// Numbers in a date pattern are taken as automation dates; a numeric text is taken as its
// number; other texts come back unchanged; Empty and Null give ""; an ErrorValue raises
// type mismatch (error 13).
#pragma once

#include <string>
#include <string_view>

#include "automation/variant.h"

namespace corvid::automation {

std::string Format(const Variant& value, std::string_view pattern);

}  // namespace corvid::automation
