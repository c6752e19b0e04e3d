#include "automation/decimal_digits.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace corvid::automation {
namespace {

void TrimLeadingZeros(std::string& digits) {
    const auto first = digits.find_first_not_of('0');
    digits.erase(0, first == std::string::npos ? digits.size() : first);
}

void TrimTrailingZeros(std::string& digits) {
    const auto last = digits.find_last_not_of('0');
    digits.erase(last == std::string::npos ? 0 : last + 1);
}

}  // namespace

DecimalDigits DecimalDigits::FromDouble(double value, int significant_digits) {
    DecimalDigits out;
    if (value == 0 || !std::isfinite(value)) return out;
    out.negative = value < 0;
    // "d.ddddde+XX": the significant digits and the power of ten of the first one.
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value),
                                      std::chars_format::scientific, significant_digits - 1);
    const std::string text(buffer, result.ptr);
    const auto e = text.find('e');
    std::string digits = text.substr(0, 1) + (e > 1 ? text.substr(2, e - 2) : std::string());
    const int exponent = std::atoi(text.c_str() + e + 1);
    const int integer_digits = exponent + 1;
    if (integer_digits <= 0) {
        out.fraction = std::string(static_cast<std::size_t>(-integer_digits), '0') + digits;
    } else if (static_cast<std::size_t>(integer_digits) >= digits.size()) {
        out.integer = digits + std::string(integer_digits - digits.size(), '0');
    } else {
        out.integer = digits.substr(0, integer_digits);
        out.fraction = digits.substr(integer_digits);
    }
    TrimLeadingZeros(out.integer);
    TrimTrailingZeros(out.fraction);
    return out;
}

DecimalDigits DecimalDigits::FromInteger(std::int64_t value) {
    DecimalDigits out;
    out.negative = value < 0;
    // Magnitude as unsigned so that the most negative value is handled too.
    std::uint64_t magnitude =
        out.negative ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    out.integer = magnitude == 0 ? std::string() : std::to_string(magnitude);
    return out;
}

DecimalDigits DecimalDigits::FromCurrency(Currency value) {
    DecimalDigits out = FromInteger(value.scaled());
    std::string digits = std::string(4, '0') + out.integer;
    out.fraction = digits.substr(digits.size() - 4);
    out.integer = digits.substr(0, digits.size() - 4);
    TrimLeadingZeros(out.integer);
    TrimTrailingZeros(out.fraction);
    return out;
}

void DecimalDigits::RoundAwayFromZero(int decimals) {
    if (decimals < 0) decimals = 0;
    if (fraction.size() <= static_cast<std::size_t>(decimals)) return;
    const bool round_up = fraction[decimals] >= '5';
    std::string digits = integer + fraction.substr(0, decimals);
    if (round_up) {
        int i = static_cast<int>(digits.size()) - 1;
        while (i >= 0 && digits[i] == '9') digits[i--] = '0';
        if (i >= 0) {
            ++digits[i];
        } else {
            digits.insert(digits.begin(), '1');
        }
    }
    integer = digits.substr(0, digits.size() - decimals);
    fraction = digits.substr(digits.size() - decimals);
    TrimLeadingZeros(integer);
    TrimTrailingZeros(fraction);
}

std::string DecimalDigits::ToPlainText() const {
    std::string text = negative ? "-" : "";
    text += integer.empty() ? "0" : integer;
    if (!fraction.empty()) text += "." + fraction;
    return text;
}

}  // namespace corvid::automation
