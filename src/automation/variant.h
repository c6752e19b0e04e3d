// The values a late-bound host passes around, for the few members that take a Variant.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "automation/currency.h"

namespace corvid::automation {

struct Empty {
    bool operator==(const Empty&) const = default;
};
struct Null {
    bool operator==(const Null&) const = default;
};
// A Variant of subtype Error (a missing optional argument is one, with DISP_E_PARAMNOTFOUND).
struct ErrorValue {
    std::int32_t code = 0;
    bool operator==(const ErrorValue&) const = default;
};
// An automation date: days since 1899-12-30, the fraction being the time of day.
struct Date {
    double days = 0;
    bool operator==(const Date&) const = default;
};

using Variant = std::variant<Empty, Null, bool, std::int16_t, std::int32_t, float, double, Currency,
                             Date, std::string, ErrorValue>;

// CStr: the text VB gives a value; Null and ErrorValue raise type mismatch (error 13).
// Empty is ""; Booleans "True"/"False"; doubles up to 15 significant digits and Singles up
// to 7, no trailing zeros, the locale's decimal symbol, "1E+15" beyond; Currency up to four
// decimals; dates as "dd/mm/yyyy", with " hh:nn:ss" when there is a time, or "hh:nn:ss" alone on
// day 0.
std::string CStr(const Variant& value);

}  // namespace corvid::automation
