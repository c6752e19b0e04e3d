// A number as decimal digits, the form Format, CStr and decimal rounding work on: doubles
// are taken on their 15 significant digits (Singles on 7), as VB shows them, so that 1.005
// is 1.005 and not 1.00499999999999989.
#pragma once

#include <cstdint>
#include <string>

#include "automation/currency.h"

namespace corvid::automation {

struct DecimalDigits {
    bool negative = false;
    std::string integer;   // no leading zeros; empty for zero
    std::string fraction;  // no trailing zeros

    static DecimalDigits FromDouble(double value, int significant_digits = 15);
    static DecimalDigits FromInteger(std::int64_t value);
    static DecimalDigits FromCurrency(Currency value);

    // Rounds half away from zero to `decimals` places (the sign is kept even if the
    // result is zero).
    void RoundAwayFromZero(int decimals);
    bool IsZero() const { return integer.empty() && fraction.empty(); }
    // "[-]int[.fraction]" with "0" for an empty integer part.
    std::string ToPlainText() const;
};

}  // namespace corvid::automation
