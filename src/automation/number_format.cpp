#include "automation/number_format.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include "automation/pattern_literal.h"

namespace corvid::automation {
namespace {

struct NumberPicture {
    std::string prefix;
    std::string suffix;
    std::size_t min_integer_digits = 0;  // "0" placeholders before the point
    bool grouping = false;
    bool has_point = false;
    std::size_t decimals = 0;           // placeholders after the point
    std::size_t required_decimals = 0;  // up to the last "0" after the point
};

bool IsPictureChar(char c) { return c == '0' || c == '#' || c == '.' || c == ','; }

NumberPicture ParsePicture(std::string_view pattern) {
    NumberPicture picture;
    std::size_t i = 0;
    while (i < pattern.size() && !IsPictureChar(pattern[i])) {
        i = CopyPatternLiteral(pattern, i, picture.prefix);
    }
    bool placeholder_seen = false;
    bool comma_pending = false;
    for (; i < pattern.size() && IsPictureChar(pattern[i]); ++i) {
        const char c = pattern[i];
        if (c == '.') {
            if (picture.has_point) break;
            picture.has_point = true;
        } else if (c == ',') {
            if (!picture.has_point && placeholder_seen) comma_pending = true;
        } else if (picture.has_point) {
            ++picture.decimals;
            if (c == '0') picture.required_decimals = picture.decimals;
        } else {
            placeholder_seen = true;
            if (comma_pending) picture.grouping = true;
            if (c == '0') ++picture.min_integer_digits;
        }
    }
    while (i < pattern.size()) i = CopyPatternLiteral(pattern, i, picture.suffix);
    return picture;
}

// Group sizes from the right; a last size of 0 repeats the one before it.
std::vector<std::size_t> GroupSizes(std::string_view grouping) {
    std::vector<std::size_t> sizes;
    bool repeat = false;
    std::size_t start = 0;
    while (start <= grouping.size()) {
        const std::size_t end = std::min(grouping.find(';', start), grouping.size());
        const int size = std::atoi(std::string(grouping.substr(start, end - start)).c_str());
        if (size > 0) {
            sizes.push_back(static_cast<std::size_t>(size));
            repeat = false;
        } else {
            repeat = !sizes.empty();
        }
        start = end + 1;
    }
    if (repeat) sizes.push_back(0);  // marker: repeat the size before
    return sizes;
}

std::string Group(const std::string& digits, const std::string& separator,
                  std::string_view grouping) {
    const std::vector<std::size_t> sizes = GroupSizes(grouping);
    std::string out;
    std::size_t end = digits.size();  // digits still to place, from the right
    std::size_t next = 0;
    std::size_t size = 0;
    while (end > 0) {
        if (next < sizes.size()) {
            if (sizes[next] != 0) size = sizes[next++];
        } else {
            size = 0;  // past the listed groups the digits stay together
        }
        if (size == 0 || size >= end) {
            out.insert(0, digits.substr(0, end));
            break;
        }
        out.insert(0, separator + digits.substr(end - size, size));
        end -= size;
    }
    return out;
}

// Integer part grouped, then the decimal symbol and the decimals padded to `decimals`.
std::string PlainAmount(const DecimalDigits& value, int decimals, const LocaleFormat& locale) {
    std::string text = Group(value.integer.empty() ? "0" : value.integer,
                             locale.currency_thousands_separator, locale.currency_grouping);
    if (decimals > 0) {
        text += locale.currency_decimal_symbol + value.fraction;
        text.append(decimals - value.fraction.size(), '0');
    }
    return text;
}

}  // namespace

std::string FormatNumber(DecimalDigits value, std::string_view pattern,
                         const LocaleFormat& locale) {
    const NumberPicture picture = ParsePicture(pattern);
    value.RoundAwayFromZero(static_cast<int>(picture.decimals));

    std::string integer = value.integer;
    if (integer.size() < picture.min_integer_digits) {
        integer.insert(0, picture.min_integer_digits - integer.size(), '0');
    }
    if (picture.grouping) integer = Group(integer, locale.thousands_separator, locale.grouping);

    std::string fraction = value.fraction;
    if (fraction.size() < picture.required_decimals) {
        fraction.append(picture.required_decimals - fraction.size(), '0');
    }

    std::string text = value.negative ? "-" : "";
    text += picture.prefix + integer;
    if (picture.has_point) text += locale.decimal_symbol + fraction;
    return text + picture.suffix;
}

std::string FormatCurrency(DecimalDigits value, const LocaleFormat& locale) {
    // "S" stands for the symbol, "N" for the amount, as the locale orders them.
    static constexpr std::array<const char*, 4> kPositive = {"SN", "NS", "S N", "N S"};
    static constexpr std::array<const char*, 16> kNegative = {
        "(SN)", "-SN",  "S-N",  "SN-",  "(NS)", "-NS",  "N-S",   "NS-",
        "-N S", "-S N", "N S-", "S N-", "S -N", "N- S", "(S N)", "(N S)"};
    value.RoundAwayFromZero(locale.currency_digits);
    const std::string amount = PlainAmount(value, locale.currency_digits, locale);
    const int positive = locale.currency_positive_order;
    const int negative = locale.currency_negative_order;
    const char* order = value.negative ? kNegative[negative >= 0 && negative < 16 ? negative : 1]
                                       : kPositive[positive >= 0 && positive < 4 ? positive : 0];
    std::string text;
    for (const char* c = order; *c; ++c) {
        if (*c == 'S') {
            text += locale.currency_symbol;
        } else if (*c == 'N') {
            text += amount;
        } else {
            text += *c;
        }
    }
    return text;
}

}  // namespace corvid::automation
