// The pieces of the user's locale that number formatting depends on. Read from the system
// once, on first use; tests and callers can install a fixed one.
#pragma once

#include <string>

namespace corvid::automation {

struct LocaleFormat {
    std::string decimal_symbol = ".";
    std::string thousands_separator = ",";
    // Digit group sizes from the right, as the Windows locale writes them: "3;0" groups by
    // threes all the way, "3" groups only the last three digits, "3;2;0" gives 12,34,567.
    std::string grouping = "3;0";
    // Currency: symbol, decimals, separators and the placement orders of the Windows locale
    // (positive: 0 "$1", 1 "1$", 2 "$ 1", 3 "1 $"; negative: 0..15 as LOCALE_INEGCURR).
    std::string currency_symbol = "$";
    int currency_digits = 2;
    std::string currency_decimal_symbol = ".";
    std::string currency_thousands_separator = ",";
    std::string currency_grouping = "3;0";
    int currency_positive_order = 0;
    int currency_negative_order = 1;
};

// The platform's locale. On POSIX this is the fixed default above: "." decimal, ","
// grouping, "$1,234.50" and "-$1,234.50". On Windows it comes from the user's locale.
LocaleFormat SystemLocaleFormat();

// The locale in use (the system's unless replaced).
LocaleFormat CurrentLocaleFormat();
// Installs a locale; returns the one in use before.
LocaleFormat ReplaceLocaleFormat(LocaleFormat locale);

}  // namespace corvid::automation
