#include "automation/conversions.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "automation/decimal_digits.h"
#include "automation/locale_format.h"
#include "automation/vb_error.h"

namespace corvid::automation {
namespace {

[[noreturn]] void Raise(std::int32_t number) { throw VbError::Standard(number); }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool StartsWith(std::string_view text, std::size_t at, std::string_view piece) {
    return !piece.empty() && text.substr(at, piece.size()) == piece;
}

struct Scanned {
    double value = 0;
    std::size_t used = 0;  // characters that made up the number
};

// &H / &O numbers: up to 16 bits they are Integers (so &HFFFF is -1), up to 32 bits Longs.
std::optional<Scanned> ScanRadix(std::string_view text) {
    if (text.size() < 2 || text[0] != '&') return std::nullopt;
    const char kind = Lower(text[1]);
    const int radix = kind == 'h' ? 16 : kind == 'o' ? 8 : 0;
    if (radix == 0) return std::nullopt;
    std::uint64_t value = 0;
    std::size_t i = 2;
    for (; i < text.size(); ++i) {
        const char c = Lower(text[i]);
        int digit = IsDigit(c) ? c - '0' : (c >= 'a' && c <= 'f') ? c - 'a' + 10 : radix;
        if (digit >= radix) break;
        value = value * radix + digit;
        if (value > 0xFFFFFFFFu) Raise(vb_errors::kOverflow);
    }
    if (i == 2) return std::nullopt;
    double result = value <= 0xFFFFu ? static_cast<std::int16_t>(value)
                                     : static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
    return Scanned{result, i};
}

// The longest number at the start of `text`: sign, digits (with `group` between them when
// given), `decimal` and decimals, exponent E or D. Empty when there is no digit.
// The part of a number before its exponent, rewritten for from_chars.
struct Mantissa {
    std::string normalized;
    std::size_t used = 0;
    bool any_digit = false;
    int leading_integer_digits = 0;  // integer digits after leading zeros, for the magnitude
};

// A sign, integer digits (a group separator between two digits is skipped) and decimals.
Mantissa ScanMantissa(std::string_view text, std::string_view decimal, std::string_view group) {
    Mantissa m;
    std::size_t& i = m.used;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) {
        if (text[i] == '-') m.normalized += '-';
        ++i;
    }
    for (;;) {
        if (i < text.size() && IsDigit(text[i])) {
            if (text[i] != '0' || m.leading_integer_digits > 0) ++m.leading_integer_digits;
            m.normalized += text[i++];
            m.any_digit = true;
        } else if (m.any_digit && StartsWith(text, i, group) && i + group.size() < text.size() &&
                   IsDigit(text[i + group.size()])) {
            i += group.size();
        } else {
            break;
        }
    }
    if (StartsWith(text, i, decimal)) {
        std::size_t j = i + decimal.size();
        std::string decimals;
        while (j < text.size() && IsDigit(text[j])) decimals += text[j++];
        if (m.any_digit || !decimals.empty()) {
            m.normalized += "." + decimals;
            m.any_digit = true;
            i = j;
        }
    }
    return m;
}

// An exponent ("E" or "D", an optional sign, digits) at `i`: its value and the position after
// it; nothing when no digit follows the letter.
std::optional<std::pair<int, std::size_t>> ScanExponent(std::string_view text, std::size_t i) {
    if (i >= text.size() || (Lower(text[i]) != 'e' && Lower(text[i]) != 'd')) return std::nullopt;
    std::size_t j = i + 1;
    const bool negative = j < text.size() && text[j] == '-';
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
    const std::size_t digits_start = j;
    int exponent = 0;
    for (; j < text.size() && IsDigit(text[j]); ++j) {
        // Saturate: anything this large is out of range either way.
        if (exponent < 100000) exponent = exponent * 10 + (text[j] - '0');
    }
    if (j == digits_start) return std::nullopt;
    return std::pair{negative ? -exponent : exponent, j};
}

std::optional<Scanned> ScanNumber(std::string_view text, std::string_view decimal,
                                  std::string_view group) {
    if (auto radix = ScanRadix(text)) return radix;
    Mantissa m = ScanMantissa(text, decimal, group);
    if (!m.any_digit) return std::nullopt;
    int exponent = 0;
    if (const auto scanned = ScanExponent(text, m.used)) {
        exponent = scanned->first;
        m.normalized += "e" + std::to_string(exponent);
        m.used = scanned->second;
    }
    Scanned out;
    out.used = m.used;
    const char* first = m.normalized.data();
    const auto result = std::from_chars(first, first + m.normalized.size(), out.value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large overflows; too small is zero.
        if (m.leading_integer_digits + exponent > 0) Raise(vb_errors::kOverflow);
        out.value = 0;
    }
    return out;
}

std::string_view TrimBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (Lower(a[i]) != Lower(b[i])) return false;
    }
    return true;
}

}  // namespace

double RoundHalfEven(double value) {
    if (!std::isfinite(value)) return value;
    const double lower = std::floor(value);
    const double difference = value - lower;
    if (difference > 0.5) return lower + 1;
    if (difference < 0.5) return lower;
    return std::fmod(lower, 2.0) == 0 ? lower : lower + 1;
}

double RoundHalfAwayFromZero(double value, int decimals) {
    if (!std::isfinite(value)) return value;
    DecimalDigits digits = DecimalDigits::FromDouble(value);
    digits.RoundAwayFromZero(decimals);
    const std::string text = digits.ToPlainText();
    double result = 0;
    std::from_chars(text.data(), text.data() + text.size(), result);
    return result;
}

double Int(double value) { return std::floor(value); }
double Fix(double value) { return std::trunc(value); }

Currency Int(Currency value) {
    std::int64_t units = value.scaled() / Currency::kScale;
    if (value.scaled() % Currency::kScale < 0) --units;
    return Currency::FromScaled(units * Currency::kScale);
}

std::int16_t CInt(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= -32768.0 && rounded <= 32767.0)) Raise(vb_errors::kOverflow);
    return static_cast<std::int16_t>(rounded);
}

std::int16_t CInt(std::string_view text) { return CInt(CDbl(text)); }

std::int32_t CLng(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) Raise(vb_errors::kOverflow);
    return static_cast<std::int32_t>(rounded);
}

std::int32_t CLng(std::string_view text) { return CLng(CDbl(text)); }

Currency CCur(double value) { return Currency::FromDouble(value); }

Currency CCur(std::string_view text) { return Currency::FromDouble(CDbl(text)); }

double CDbl(std::string_view text) {
    const std::string_view number = TrimBlanks(text);
    const LocaleFormat locale = CurrentLocaleFormat();
    const auto scanned = ScanNumber(number, locale.decimal_symbol, locale.thousands_separator);
    if (!scanned || scanned->used != number.size()) Raise(vb_errors::kTypeMismatch);
    return scanned->value;
}

bool CBoolText(std::string_view text) {
    const std::string_view word = TrimBlanks(text);
    if (EqualsIgnoringCase(word, "True")) return true;
    if (EqualsIgnoringCase(word, "False")) return false;
    return CDbl(word) != 0;
}

std::optional<double> TryLeadingNumber(std::string_view text) {
    std::string packed;
    for (char c : text) {
        if (c != ' ' && c != '\t' && c != '\n') packed += c;
    }
    const auto scanned = ScanNumber(packed, ".", {});
    if (!scanned) return std::nullopt;
    return scanned->value;
}

double Val(std::string_view text) { return TryLeadingNumber(text).value_or(0.0); }

}  // namespace corvid::automation
