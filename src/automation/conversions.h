// VB conversions: rounding half to even, integer and currency conversions that raise
// overflow (error 6), Int (floor), Val and the text-to-value conversions.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "automation/currency.h"

namespace corvid::automation {

// Rounds to the nearest integer, ties to the even one (2.5 -> 2, 3.5 -> 4, -2.5 -> -2).
double RoundHalfEven(double value);
// Rounds half away from zero to `decimals` places on the value's 15 significant digits,
// as Format does (1.005 -> 1.01).
double RoundHalfAwayFromZero(double value, int decimals);

// Int: the largest integer not above the value (Int(-1.5) = -2).
double Int(double value);
// Fix: the integer part, truncated toward zero.
double Fix(double value);
// Int of an amount: whole units, toward minus infinity.
Currency Int(Currency value);

// CInt: half to even, then -32768..32767, else overflow (error 6).
std::int16_t CInt(double value);
std::int16_t CInt(std::string_view text);
// CLng: half to even, then the 32-bit range, else overflow (error 6).
std::int32_t CLng(double value);
std::int32_t CLng(std::string_view text);
// CCur: half to even to four decimals, overflow (error 6) outside the currency range.
Currency CCur(double value);
Currency CCur(std::string_view text);
// CDbl of a text: the whole text (blanks around it allowed) must be a number written with
// the locale's decimal symbol (thousands separators allowed), "E" exponent or &H/&O
// prefix; anything else raises type mismatch (error 13).
double CDbl(std::string_view text);
inline double CDbl(double value) { return value; }
// CBool of a text: "True"/"False" in any case, or a number (non-zero is True); anything
// else raises type mismatch (error 13).
bool CBoolText(std::string_view text);

// Val: the value of the number the text starts with, 0 if none. Blanks, tabs and line
// feeds are skipped wherever they are; then an optional sign, digits, "." and decimals,
// an exponent (E or D), or an &H/&O prefixed hex or octal number (&HFFFF is -1, as a
// 16-bit value; up to 32 bits). Reading stops at the first character that does not fit.
// A value out of the double range raises overflow (error 6).
double Val(std::string_view text);
// As Val, but empty when the text does not start with a number at all ("abc", "", "-").
std::optional<double> TryLeadingNumber(std::string_view text);

}  // namespace corvid::automation
