#include <gtest/gtest.h>

#include "automation/conversions.h"
#include "automation/locale_format.h"
#include "automation/variant.h"
#include "automation/vb_error.h"
#include "support/vb_error_testing.h"

namespace corvid::automation {
namespace {

using corvid::test_support::ErrorNumberOf;

TEST(ValTest, ReadsTheLeadingNumber) {
    EXPECT_EQ(Val(""), 0);
    EXPECT_EQ(Val("abc"), 0);
    EXPECT_EQ(Val("  \t42"), 42);
    EXPECT_EQ(Val("-12abc"), -12);
    EXPECT_EQ(Val("+7"), 7);
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("-.25"), -0.25);
    EXPECT_EQ(Val("1.2.3"), 1.2);
    EXPECT_EQ(Val("7,5"), 7);                // only "." is a decimal point
    EXPECT_EQ(Val("1 615 198th"), 1615198);  // blanks are skipped inside, too
    EXPECT_EQ(Val("12-3"), 12);
    EXPECT_EQ(Val("--1"), 0);
}

TEST(ValTest, ReadsExponentsAndRadixPrefixes) {
    EXPECT_EQ(Val("1.5E3"), 1500);
    EXPECT_EQ(Val("1.5d-2"), 0.015);
    EXPECT_EQ(Val("2E"), 2);  // an exponent without digits is not part of the number
    EXPECT_EQ(Val("2E+x"), 2);
    EXPECT_EQ(Val("1e-400"), 0);
    EXPECT_EQ(Val("&H1F"), 31);
    EXPECT_EQ(Val("&hff zz"), 255);
    EXPECT_EQ(Val("&HFFFF"), -1);  // 16-bit value
    EXPECT_EQ(Val("&H10000"), 65536);
    EXPECT_EQ(Val("&HFFFFFFFF"), -1);
    EXPECT_EQ(Val("&O17"), 15);
    EXPECT_EQ(Val("&O8"), 0);
    EXPECT_EQ(Val("&X1"), 0);
    EXPECT_EQ(ErrorNumberOf([] { Val("1E400"); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { Val("&H100000000"); }), 6);
}

TEST(TryLeadingNumberTest, TellsMissingNumbersApart) {
    EXPECT_FALSE(TryLeadingNumber(""));
    EXPECT_FALSE(TryLeadingNumber("abc"));
    EXPECT_FALSE(TryLeadingNumber("-"));
    EXPECT_FALSE(TryLeadingNumber("."));
    EXPECT_FALSE(TryLeadingNumber("&H"));
    EXPECT_EQ(TryLeadingNumber("0"), 0.0);
    EXPECT_EQ(TryLeadingNumber("7.5 s"), 7.5);
    EXPECT_EQ(TryLeadingNumber("5."), 5.0);
}

class TextConversionTest : public ::testing::Test {
  protected:
    void SetUp() override { saved_ = ReplaceLocaleFormat(LocaleFormat{}); }
    void TearDown() override { ReplaceLocaleFormat(saved_); }
    LocaleFormat saved_;
};

TEST_F(TextConversionTest, CDblNeedsTheWholeTextToBeANumber) {
    EXPECT_EQ(CDbl(" 12.5 "), 12.5);
    EXPECT_EQ(CDbl("-1,234.5"), -1234.5);
    EXPECT_EQ(CDbl("1E3"), 1000);
    EXPECT_EQ(CDbl("&H10"), 16);
    EXPECT_EQ(ErrorNumberOf([] { CDbl(""); }), 13);
    EXPECT_EQ(ErrorNumberOf([] { CDbl("12abc"); }), 13);
    EXPECT_EQ(ErrorNumberOf([] { CDbl("1 2"); }), 13);
    EXPECT_EQ(ErrorNumberOf([] { CDbl(",5"); }), 13);
}

TEST_F(TextConversionTest, CDblAndCStrFollowTheLocaleDecimalSymbol) {
    LocaleFormat comma;
    comma.decimal_symbol = ",";
    comma.thousands_separator = ".";
    ReplaceLocaleFormat(comma);
    EXPECT_EQ(CDbl("7,5"), 7.5);
    EXPECT_EQ(CDbl("1.234,5"), 1234.5);
    EXPECT_EQ(Val("7,5"), 7);  // Val does not follow the locale
    // The trace writes the clock this way: "43200,5" on a Spanish-locale Windows.
    EXPECT_EQ(CStr(Variant(43200.5f)), "43200,5");
    EXPECT_EQ(CStr(Variant(-0.25)), "-0,25");
    EXPECT_EQ(CStr(Variant(Currency::FromDouble(2.5))), "2,5");
    EXPECT_EQ(CStr(Variant(1.5e20)), "1,5E+20");
}

TEST_F(TextConversionTest, CBoolText) {
    EXPECT_TRUE(CBoolText("True"));
    EXPECT_TRUE(CBoolText(" tRUE "));
    EXPECT_FALSE(CBoolText("FALSE"));
    EXPECT_TRUE(CBoolText("-1"));
    EXPECT_TRUE(CBoolText("0.5"));
    EXPECT_FALSE(CBoolText("0"));
    EXPECT_EQ(ErrorNumberOf([] { CBoolText("abc"); }), 13);
    EXPECT_EQ(ErrorNumberOf([] { CBoolText(""); }), 13);
    EXPECT_EQ(ErrorNumberOf([] { CBoolText("Truex"); }), 13);
}

}  // namespace
}  // namespace corvid::automation
