#include <windows.h>

#include <cstdlib>

#include "automation/locale_format.h"

namespace corvid::automation {
namespace {

// The locale's text for `type`, or `fallback` when the locale has none.
std::string Info(LCTYPE type, const std::string& fallback) {
    char buffer[32] = {};
    const int length = GetLocaleInfoA(LOCALE_USER_DEFAULT, type, buffer, sizeof buffer);
    if (length <= 1) return fallback;
    return std::string(buffer, static_cast<std::size_t>(length - 1));
}

int NumberInfo(LCTYPE type, int fallback, int highest) {
    const std::string text = Info(type, std::string());
    if (text.empty()) return fallback;
    const int value = std::atoi(text.c_str());
    return value >= 0 && value <= highest ? value : fallback;
}

}  // namespace

LocaleFormat SystemLocaleFormat() {
    LocaleFormat defaults;
    LocaleFormat locale;
    locale.decimal_symbol = Info(LOCALE_SDECIMAL, defaults.decimal_symbol);
    locale.thousands_separator = Info(LOCALE_STHOUSAND, defaults.thousands_separator);
    locale.grouping = Info(LOCALE_SGROUPING, defaults.grouping);
    locale.currency_grouping = Info(LOCALE_SMONGROUPING, defaults.currency_grouping);
    locale.currency_symbol = Info(LOCALE_SCURRENCY, defaults.currency_symbol);
    locale.currency_digits = NumberInfo(LOCALE_ICURRDIGITS, defaults.currency_digits, 9);
    locale.currency_decimal_symbol = Info(LOCALE_SMONDECIMALSEP, defaults.currency_decimal_symbol);
    locale.currency_thousands_separator =
        Info(LOCALE_SMONTHOUSANDSEP, defaults.currency_thousands_separator);
    locale.currency_positive_order =
        NumberInfo(LOCALE_ICURRENCY, defaults.currency_positive_order, 3);
    locale.currency_negative_order =
        NumberInfo(LOCALE_INEGCURR, defaults.currency_negative_order, 15);
    return locale;
}

}  // namespace corvid::automation
