// Money and the numbers of document commands. Amounts are kept in hundredths (cents), the
// unit of the printer's totals; prices and quantities keep the decimals they were sent with.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace corvid::sim {

using Cents = std::int64_t;

// Rate slots of an item line: 0 exempt, 1 to 3 the taxed rates, 4 the collected levy.
inline constexpr int kRateSlots = 5;
inline constexpr int kLevySlot = 4;
using SlotAmounts = std::array<Cents, kRateSlots>;

// A number as a command writes it: `units` steps of 10^-decimals.
struct Decimal {
    std::int64_t units = 0;
    int decimals = 0;
};

// `value` steps of 10^-from as steps of 10^-to; halves round away from zero.
std::int64_t Rescale(__int128 value, int from, int to);

inline Cents ToCents(Decimal d) { return Rescale(d.units, d.decimals, 2); }
inline std::int64_t Thousandths(Decimal d) { return Rescale(d.units, d.decimals, 3); }

// Price times quantity, to the cent.
Cents LineAmount(Decimal price, Decimal quantity);

// The tax added to `base` at `rate` hundredths of a percent (1600 is 16 %).
Cents TaxOn(Cents base, int rate);

// Splits `amount` over the slots 0 to 3 in proportion to `over`: the levy takes no discount.
// The cents that proportion leaves over go to the largest remainders, so the parts add up.
SlotAmounts Spread(Cents amount, const SlotAmounts& over);

Cents Sum(const SlotAmounts& amounts);

// "1.234,56": thousands grouped with points, decimal comma.
std::string FormatAmount(Cents cents);
// "12,50"; with `trimZeros`, "2" or "1,5".
std::string FormatDecimal(Decimal d, bool trimZeros = false);
// `value` in at least `width` digits, zeros in front.
std::string ZeroPadded(long long value, int width);
// An amount as the status records send it: hundredths, no decimal point, ten characters.
std::string HundredthsField(Cents cents);

}  // namespace corvid::sim
