#include "sim/amount_formats.h"

namespace corvid::sim {

AmountFormats AmountFormatsFor(int flag21) {
    switch (flag21) {
        case 2:
            return {{10, 3}, {8, 3}, {12, 2}};
        case 3:
            return {{10, 4}, {8, 3}, {12, 2}};
        case 11:
            return {{10, 1}, {8, 3}, {12, 1}};
        case 12:
            return {{10, 0}, {8, 3}, {12, 0}};
        case 30:
            return {{16, 2}, {17, 3}, {17, 2}};
        default:
            return {{10, 2}, {8, 3}, {12, 2}};
    }
}

std::optional<Decimal> ParseCommaNumber(std::string_view text, int maxDecimals) {
    Decimal number;
    bool inFraction = false;
    int wholeDigits = 0;
    for (char c : text) {
        if (c == ',' && !inFraction) {
            inFraction = true;
        } else if (c >= '0' && c <= '9' && wholeDigits + number.decimals < 18) {
            number.units = number.units * 10 + (c - '0');
            if (inFraction) {
                ++number.decimals;
            } else {
                ++wholeDigits;
            }
        } else {
            return std::nullopt;
        }
    }
    if (wholeDigits == 0 || number.decimals > maxDecimals) return std::nullopt;
    if (inFraction && number.decimals == 0) return std::nullopt;
    return number;
}

}  // namespace corvid::sim
