#include <gtest/gtest.h>

#include <limits>

#include "automation/conversions.h"
#include "automation/vb_error.h"
#include "support/vb_error_testing.h"

namespace corvid::automation {
namespace {

using corvid::test_support::ErrorNumberOf;

TEST(RoundHalfEvenTest, TiesGoToTheEvenNeighbour) {
    EXPECT_EQ(RoundHalfEven(0.5), 0);
    EXPECT_EQ(RoundHalfEven(1.5), 2);
    EXPECT_EQ(RoundHalfEven(2.5), 2);
    EXPECT_EQ(RoundHalfEven(3.5), 4);
    EXPECT_EQ(RoundHalfEven(-0.5), 0);
    EXPECT_EQ(RoundHalfEven(-1.5), -2);
    EXPECT_EQ(RoundHalfEven(-2.5), -2);
    EXPECT_EQ(RoundHalfEven(2.5000001), 3);
    EXPECT_EQ(RoundHalfEven(-2.4999999), -2);
    EXPECT_EQ(RoundHalfEven(7.5), 8);  // the "TimeOut" of 7,5 read from settings
    EXPECT_EQ(RoundHalfEven(4503599627370497.0), 4503599627370497.0);
}

TEST(RoundHalfAwayFromZeroTest, RoundsOnTheShownDigits) {
    EXPECT_EQ(RoundHalfAwayFromZero(2.5, 0), 3);
    EXPECT_EQ(RoundHalfAwayFromZero(-2.5, 0), -3);
    EXPECT_EQ(RoundHalfAwayFromZero(1.005, 2), 1.01);  // 1.00499999... in binary
    EXPECT_EQ(RoundHalfAwayFromZero(2.675, 2), 2.68);
    EXPECT_EQ(RoundHalfAwayFromZero(1.2344, 3), 1.234);
}

TEST(IntTest, FloorsTowardMinusInfinity) {
    EXPECT_EQ(Int(1.9), 1);
    EXPECT_EQ(Int(-1.1), -2);
    EXPECT_EQ(Int(-2.0), -2);
    EXPECT_EQ(Fix(-1.9), -1);
    EXPECT_EQ(Int(Currency::FromScaled(-15000)).scaled(), -20000);
    EXPECT_EQ(Int(Currency::FromScaled(15000)).scaled(), 10000);
    EXPECT_EQ(Int(Currency::FromScaled(-20000)).scaled(), -20000);
}

TEST(CIntTest, RoundsHalfToEvenWithin16Bits) {
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CInt(32767.0), 32767);
    EXPECT_EQ(CInt(32767.4), 32767);
    EXPECT_EQ(CInt(-32768.0), -32768);
    EXPECT_EQ(CInt(-32768.5), -32768);  // ties to the even -32768
    EXPECT_EQ(CInt("  12.5 "), 12);
}

TEST(CIntTest, OverflowsOutsideTheRange) {
    EXPECT_EQ(ErrorNumberOf([] { CInt(32767.5); }), 6);  // rounds to 32768
    EXPECT_EQ(ErrorNumberOf([] { CInt(32768.0); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { CInt(-32768.51); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { CInt(std::numeric_limits<double>::quiet_NaN()); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { CInt("abc"); }), 13);
}

TEST(CLngTest, RoundsAndOverflowsAt32Bits) {
    EXPECT_EQ(CLng(2147483647.0), 2147483647);
    EXPECT_EQ(CLng(2147483646.5), 2147483646);
    EXPECT_EQ(CLng(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(CLng(-2147483648.5), -2147483647 - 1);
    EXPECT_EQ(CLng(-0.5), 0);
    EXPECT_EQ(ErrorNumberOf([] { CLng(2147483647.5); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { CLng(2147483648.0); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { CLng(-2147483649.0); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { CLng(1e300); }), 6);
}

TEST(CurrencyTest, FromDoubleRoundsHalfToEvenAtFourDecimals) {
    EXPECT_EQ(CCur(12.5).scaled(), 125000);
    // Binary fractions that fall exactly halfway between two ten-thousandths.
    EXPECT_EQ(CCur(0.03125).scaled(), 312);
    EXPECT_EQ(CCur(0.09375).scaled(), 938);
    EXPECT_EQ(CCur(-0.03125).scaled(), -312);
    EXPECT_EQ(CCur(-0.09375).scaled(), -938);
    EXPECT_EQ(CCur(1.23456).scaled(), 12346);
    EXPECT_EQ(CCur(-1.23456).scaled(), -12346);
    EXPECT_EQ(CCur("19.99").scaled(), 199900);
    EXPECT_GT(CCur(922337203685477.5).scaled(), 9223372036854774000);
    EXPECT_EQ(ErrorNumberOf([] { CCur(922337203685477.625); }), 6);   // 2^63 after scaling
    EXPECT_EQ(ErrorNumberOf([] { CCur(-922337203685477.625); }), 0);  // -2^63 still fits
    EXPECT_EQ(ErrorNumberOf([] { CCur(-1e16); }), 6);
}

TEST(CurrencyTest, CheckedArithmetic) {
    const Currency a = CCur(2.5);
    const Currency b = CCur(0.3333);
    EXPECT_EQ((a + b).scaled(), 28333);
    EXPECT_EQ((b - a).scaled(), -21667);
    EXPECT_EQ((-a).scaled(), -25000);
    EXPECT_EQ((a * b).scaled(), 8332);                  // 0.83325 ties to even 0.8332
    EXPECT_EQ((CCur(0.0003) * CCur(0.5)).scaled(), 2);  // 0.00015 -> 0.0002
    EXPECT_EQ((CCur(-0.0003) * CCur(0.5)).scaled(), -2);
    EXPECT_EQ((CCur(-1.5) * CCur(-2)).scaled(), 30000);
    const Currency max = Currency::FromScaled(std::numeric_limits<std::int64_t>::max());
    const Currency min = Currency::FromScaled(std::numeric_limits<std::int64_t>::min());
    const Currency tiny = Currency::FromScaled(1);
    EXPECT_EQ(ErrorNumberOf([&] { (void)(max + tiny); }), 6);
    EXPECT_EQ(ErrorNumberOf([&] { (void)(min - tiny); }), 6);
    EXPECT_EQ(ErrorNumberOf([&] { (void)(-min); }), 6);
    EXPECT_EQ(ErrorNumberOf([&] { (void)(max * CCur(2)); }), 6);
    EXPECT_EQ((max * CCur(1)).scaled(), max.scaled());
}

}  // namespace
}  // namespace corvid::automation
