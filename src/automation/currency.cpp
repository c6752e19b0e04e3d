#include "automation/currency.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "automation/conversions.h"
#include "automation/vb_error.h"

namespace corvid::automation {
namespace {

[[noreturn]] void RaiseOverflow() { throw VbError::Standard(vb_errors::kOverflow); }

// The magnitude of a 64-bit value; exact for the minimum too.
std::uint64_t Magnitude(std::int64_t value) {
    return value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
}

// `magnitude` with `negative`'s sign, or Overflow when it does not fit in 64 bits. Works
// without a 128-bit type, which 32-bit targets lack.
std::int64_t Signed(std::uint64_t high, std::uint64_t magnitude, bool negative) {
    constexpr std::uint64_t kMinMagnitude = std::uint64_t{1} << 63;
    if (high != 0 || magnitude > (negative ? kMinMagnitude : kMinMagnitude - 1)) RaiseOverflow();
    return negative ? static_cast<std::int64_t>(0 - magnitude)
                    : static_cast<std::int64_t>(magnitude);
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
    std::int64_t sum = 0;
    if (__builtin_add_overflow(scaled_, other.scaled_, &sum)) RaiseOverflow();
    return Currency(sum);
}

Currency Currency::operator-(Currency other) const {
    std::int64_t difference = 0;
    if (__builtin_sub_overflow(scaled_, other.scaled_, &difference)) RaiseOverflow();
    return Currency(difference);
}

Currency Currency::operator-() const {
    return Currency(Signed(0, Magnitude(scaled_), scaled_ > 0));
}

Currency Currency::operator*(Currency other) const {
    // The 128-bit product of the magnitudes, from 32-bit halves.
    const std::uint64_t a = Magnitude(scaled_);
    const std::uint64_t b = Magnitude(other.scaled_);
    const std::uint64_t a0 = a & 0xFFFFFFFFu, a1 = a >> 32;
    const std::uint64_t b0 = b & 0xFFFFFFFFu, b1 = b >> 32;
    const std::uint64_t low_low = a0 * b0;
    const std::uint64_t high_low = a1 * b0;
    const std::uint64_t low_high = a0 * b1;
    const std::uint64_t cross =
        (low_low >> 32) + (high_low & 0xFFFFFFFFu) + (low_high & 0xFFFFFFFFu);
    const std::uint64_t product_high =
        a1 * b1 + (high_low >> 32) + (low_high >> 32) + (cross >> 32);
    const std::uint64_t product_low = (cross << 32) | (low_low & 0xFFFFFFFFu);

    // Divided by the scale 32 bits at a time: the remainder stays below it, so each step
    // fits in 64 bits.
    const std::uint64_t limbs[] = {product_high >> 32, product_high & 0xFFFFFFFFu,
                                   product_low >> 32, product_low & 0xFFFFFFFFu};
    std::uint64_t quotient[4] = {};
    std::uint64_t remainder = 0;
    for (int i = 0; i < 4; ++i) {
        const std::uint64_t current = (remainder << 32) | limbs[i];
        quotient[i] = current / kScale;
        remainder = current % kScale;
    }
    std::uint64_t high = (quotient[0] << 32) | quotient[1];
    std::uint64_t low = (quotient[2] << 32) | quotient[3];
    // Round the dropped digits half to even, away from the truncation toward zero.
    const std::uint64_t twice = remainder * 2;
    if (twice > static_cast<std::uint64_t>(kScale) ||
        (twice == static_cast<std::uint64_t>(kScale) && (low & 1) != 0)) {
        if (++low == 0) ++high;
    }
    return Currency(Signed(high, low, (scaled_ < 0) != (other.scaled_ < 0)));
}

}  // namespace corvid::automation
