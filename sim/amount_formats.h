// How wide the numbers of document commands are and how many decimals they imply. Printer
// flag 21 chooses the layout; the host reads the flag from S3 and writes its numbers to
// match, so the printer must read them with the same widths.
#pragma once

#include <optional>
#include <string_view>

#include "sim/money.h"

namespace corvid::sim {

struct NumberField {
    int digits;
    int decimals;
};

struct AmountFormats {
    NumberField price;
    NumberField quantity;
    NumberField payment;  // payments and amount discounts
};

AmountFormats AmountFormatsFor(int flag21);

// "12,50" or "3": digits with an optional decimal comma and at most `maxDecimals` decimals.
std::optional<Decimal> ParseCommaNumber(std::string_view text, int maxDecimals);

}  // namespace corvid::sim
