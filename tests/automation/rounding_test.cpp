#include <gtest/gtest.h>

#include <limits>

#include "automation/conversions.h"
#include "support/outcome_table.h"

namespace corvid::automation {
namespace {

const Currency kMax = Currency::FromScaled(std::numeric_limits<std::int64_t>::max());
const Currency kMin = Currency::FromScaled(std::numeric_limits<std::int64_t>::min());

TEST(RoundingTest, RoundsAndConvertsAsVbDoes) {
    test_support::ExpectNumbers(
        {NUMBER_IS(RoundHalfEven(0.5), 0), NUMBER_IS(RoundHalfEven(1.5), 2),
         NUMBER_IS(RoundHalfEven(-2.5), -2), NUMBER_IS(RoundHalfEven(2.5000001), 3),
         NUMBER_IS(RoundHalfAwayFromZero(-2.5, 0), -3),
         NUMBER_IS(RoundHalfAwayFromZero(1.005, 2), 1.01),  // 1.00499999... in binary
         NUMBER_IS(Int(-1.1), -2), NUMBER_IS(Fix(-1.9), -1),
         NUMBER_IS(Int(Currency::FromScaled(-15000)).scaled(), -20000), NUMBER_IS(CInt(2.5), 2),
         NUMBER_IS(CInt(-32768.5), -32768), NUMBER_IS(CInt("  12.5 "), 12),
         RAISES(CInt(32767.5), 6), RAISES(CInt(32768.0), 6), RAISES(CInt(-32768.51), 6),
         RAISES(CInt("abc"), 13), NUMBER_IS(CLng(-2147483648.5), -2147483648.0),
         RAISES(CLng(2147483647.5), 6),
         // Binary fractions that fall exactly halfway between two ten-thousandths.
         NUMBER_IS(CCur(0.03125).scaled(), 312), NUMBER_IS(CCur(-0.09375).scaled(), -938),
         NUMBER_IS(CCur("19.99").scaled(), 199900),
         RAISES(CCur(922337203685477.625).scaled(), 6),  // 2^63 after scaling
         NUMBER_IS(CCur(-922337203685477.625).scaled(), -9223372036854775808.0)});
}

TEST(RoundingTest, CurrencyArithmeticIsCheckedAndProductsTieToEven) {
    test_support::ExpectNumbers({NUMBER_IS((CCur(0.3333) - CCur(2.5)).scaled(), -21667),
                                 NUMBER_IS((CCur(2.5) * CCur(0.3333)).scaled(), 8332),  // 0.83325
                                 NUMBER_IS((CCur(0.0003) * CCur(0.5)).scaled(), 2),     // 0.00015
                                 NUMBER_IS((CCur(-0.0003) * CCur(0.5)).scaled(), -2),
                                 RAISES((kMax + Currency::FromScaled(1)).scaled(), 6),
                                 RAISES((-kMin).scaled(), 6),
                                 RAISES((kMax * CCur(2)).scaled(), 6)});
}

}  // namespace
}  // namespace corvid::automation
