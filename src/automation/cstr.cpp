#include <charconv>
#include <cstdio>
#include <string>
#include <type_traits>

#include "automation/dates.h"
#include "automation/decimal_digits.h"
#include "automation/locale_format.h"
#include "automation/variant.h"
#include "automation/vb_error.h"

namespace corvid::automation {
namespace {

// Shortest text with up to `precision` significant digits, "E+nn" form for large and
// tiny values, as VB prints numbers.
template <typename Number>
std::string NumberText(Number value, int precision) {
    if (value == 0) return "0";  // also for -0
    char buffer[64];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, precision);
    std::string text(buffer, result.ptr);
    for (char& c : text) {
        if (c == 'e') c = 'E';
    }
    return text;
}

// The host's string conversion writes the user's decimal symbol ("43200,5" in Spain).
std::string WithLocaleDecimal(std::string text) {
    const std::size_t point = text.find('.');
    if (point != std::string::npos) text.replace(point, 1, CurrentLocaleFormat().decimal_symbol);
    return text;
}

std::string TwoDigits(int value) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%02d", value);
    return buffer;
}

std::string DateText(Date value) {
    const DateParts p = SplitDate(value);
    const std::string time =
        TwoDigits(p.hour) + ":" + TwoDigits(p.minute) + ":" + TwoDigits(p.second);
    const bool has_time = p.hour != 0 || p.minute != 0 || p.second != 0;
    if (p.year == 1899 && p.month == 12 && p.day == 30 && has_time) return time;
    char date[32];
    std::snprintf(date, sizeof date, "%02d/%02d/%04d", p.day, p.month, p.year);
    return has_time ? std::string(date) + " " + time : std::string(date);
}

}  // namespace

std::string CStr(const Variant& value) {
    return std::visit(
        [](const auto& v) -> std::string {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, Empty>) {
                return {};
            } else if constexpr (std::is_same_v<T, Null> || std::is_same_v<T, ErrorValue>) {
                throw VbError::Standard(vb_errors::kTypeMismatch);
            } else if constexpr (std::is_same_v<T, bool>) {
                return v ? "True" : "False";
            } else if constexpr (std::is_same_v<T, std::int16_t> ||
                                 std::is_same_v<T, std::int32_t>) {
                return std::to_string(v);
            } else if constexpr (std::is_same_v<T, float>) {
                return WithLocaleDecimal(NumberText(v, 7));
            } else if constexpr (std::is_same_v<T, double>) {
                return WithLocaleDecimal(NumberText(v, 15));
            } else if constexpr (std::is_same_v<T, Currency>) {
                return WithLocaleDecimal(DecimalDigits::FromCurrency(v).ToPlainText());
            } else if constexpr (std::is_same_v<T, Date>) {
                return DateText(v);
            } else {
                return v;
            }
        },
        value);
}

}  // namespace corvid::automation
