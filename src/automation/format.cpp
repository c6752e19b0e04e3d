#include "automation/format.h"

#include <type_traits>

#include "automation/conversions.h"
#include "automation/date_format.h"
#include "automation/decimal_digits.h"
#include "automation/number_format.h"
#include "automation/vb_error.h"

namespace corvid::automation {
namespace {

bool IsCurrencyPattern(std::string_view pattern) {
    constexpr std::string_view kName = "currency";
    if (pattern.size() != kName.size()) return false;
    for (std::size_t i = 0; i < kName.size(); ++i) {
        char c = pattern[i];
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        if (c != kName[i]) return false;
    }
    return true;
}

// The value's decimal digits as Format sees them; empty for a text that is not a number.
std::optional<DecimalDigits> Digits(const Variant& value) {
    return std::visit(
        [](const auto& v) -> std::optional<DecimalDigits> {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, bool>) {
                return DecimalDigits::FromInteger(v ? -1 : 0);
            } else if constexpr (std::is_same_v<T, std::int16_t> ||
                                 std::is_same_v<T, std::int32_t>) {
                return DecimalDigits::FromInteger(v);
            } else if constexpr (std::is_same_v<T, float>) {
                return DecimalDigits::FromDouble(v, 7);
            } else if constexpr (std::is_same_v<T, double>) {
                return DecimalDigits::FromDouble(v);
            } else if constexpr (std::is_same_v<T, Currency>) {
                return DecimalDigits::FromCurrency(v);
            } else if constexpr (std::is_same_v<T, Date>) {
                return DecimalDigits::FromDouble(v.days);
            } else if constexpr (std::is_same_v<T, std::string>) {
                try {
                    return DecimalDigits::FromDouble(CDbl(v));
                } catch (const VbError&) {
                    return std::nullopt;
                }
            } else {
                return std::nullopt;
            }
        },
        value);
}

double AsDays(const Variant& value, const DecimalDigits& digits) {
    if (const Date* date = std::get_if<Date>(&value)) return date->days;
    if (const double* number = std::get_if<double>(&value)) return *number;
    const std::string text = digits.ToPlainText();
    return Val(text);
}

// ">" and "<" alone force upper or lower case on the value's text. Letters of the ANSI code
// page's Latin-1 range change too, as the host's own case conversion does.
std::optional<std::string> FormatCase(const Variant& value, std::string_view pattern) {
    const bool upper = pattern.find_first_not_of('>') == std::string_view::npos;
    const bool lower = pattern.find_first_not_of('<') == std::string_view::npos;
    if (!upper && !lower) return std::nullopt;
    std::string text = CStr(value);
    for (char& c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool smallLetter =
            (byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte != 0xF7 && byte != 0xFF);
        const bool capital =
            (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE && byte != 0xD7);
        if (upper && smallLetter) c = static_cast<char>(byte - 0x20);
        if (lower && capital) c = static_cast<char>(byte + 0x20);
    }
    return text;
}

}  // namespace

std::string Format(const Variant& value, std::string_view pattern) {
    if (std::holds_alternative<Empty>(value) || std::holds_alternative<Null>(value)) return {};
    if (std::holds_alternative<ErrorValue>(value)) {
        throw VbError::Standard(vb_errors::kTypeMismatch);
    }
    if (pattern.empty()) return CStr(value);
    if (auto cased = FormatCase(value, pattern)) return *cased;
    const std::optional<DecimalDigits> digits = Digits(value);
    if (!digits) return std::get<std::string>(value);
    const LocaleFormat locale = CurrentLocaleFormat();
    if (IsCurrencyPattern(pattern)) return FormatCurrency(*digits, locale);
    if (IsDatePattern(pattern)) return FormatDate(Date{AsDays(value, *digits)}, pattern);
    return FormatNumber(*digits, pattern, locale);
}

}  // namespace corvid::automation
