#include "automation/currency.h"

#include <cmath>
#include <limits>

#include "automation/conversions.h"
#include "automation/vb_error.h"

namespace corvid::automation {
namespace {

[[noreturn]] void RaiseOverflow() { throw VbError::Standard(vb_errors::kOverflow); }

std::int64_t Checked(__int128 value) {
    if (value < std::numeric_limits<std::int64_t>::min() ||
        value > std::numeric_limits<std::int64_t>::max()) {
        RaiseOverflow();
    }
    return static_cast<std::int64_t>(value);
}

}  // namespace

Currency Currency::FromDouble(double value) {
    const double scaled = RoundHalfEven(value * kScale);
    // 2^63 is exactly representable; every double below it (and at or above -2^63) fits.
    constexpr double kLimit = 9223372036854775808.0;
    if (!(scaled >= -kLimit && scaled < kLimit)) RaiseOverflow();
    return Currency(static_cast<std::int64_t>(scaled));
}

Currency Currency::operator+(Currency other) const {
    return Currency(Checked(static_cast<__int128>(scaled_) + other.scaled_));
}

Currency Currency::operator-(Currency other) const {
    return Currency(Checked(static_cast<__int128>(scaled_) - other.scaled_));
}

Currency Currency::operator-() const { return Currency(Checked(-static_cast<__int128>(scaled_))); }

Currency Currency::operator*(Currency other) const {
    const __int128 product = static_cast<__int128>(scaled_) * other.scaled_;
    __int128 quotient = product / kScale;
    const __int128 remainder = product % kScale;
    // Round the dropped digits half to even, away from the truncation toward zero.
    const __int128 twice = (remainder < 0 ? -remainder : remainder) * 2;
    if (twice > kScale || (twice == kScale && (quotient % 2) != 0)) {
        quotient += product < 0 ? -1 : 1;
    }
    return Currency(Checked(quotient));
}

}  // namespace corvid::automation
