#include <gtest/gtest.h>

#include "automation/format.h"
#include "automation/locale_format.h"
#include "automation/vb_error.h"

namespace corvid::automation {
namespace {

class FormatNumberTest : public ::testing::Test {
  protected:
    void SetUp() override { saved_ = ReplaceLocaleFormat(LocaleFormat{}); }
    void TearDown() override { ReplaceLocaleFormat(saved_); }
    LocaleFormat saved_;
};

TEST_F(FormatNumberTest, ZeroPlaceholdersPadAndNeverCut) {
    EXPECT_EQ(Format(std::int16_t{1}, "00"), "01");
    EXPECT_EQ(Format(std::int16_t{7}, "0"), "7");
    EXPECT_EQ(Format(std::int32_t{42}, "00000"), "00042");
    EXPECT_EQ(Format(std::int32_t{123}, "000000"), "000123");
    EXPECT_EQ(Format(std::int32_t{1234}, "0000000"), "0001234");
    EXPECT_EQ(Format(std::int16_t{123}, "00"), "123");
    EXPECT_EQ(Format(std::int32_t{123456789}, "00000"), "123456789");
    EXPECT_EQ(Format(std::int32_t{0}, "000"), "000");
    EXPECT_EQ(Format(std::int16_t{-5}, "00"), "-05");
}

TEST_F(FormatNumberTest, RoundsHalfAwayFromZeroToThePicture) {
    EXPECT_EQ(Format(2.5, "0"), "3");
    EXPECT_EQ(Format(-2.5, "00"), "-03");
    EXPECT_EQ(Format(1.5, "00"), "02");
    EXPECT_EQ(Format(12.5, "###0.00"), "12.50");
    EXPECT_EQ(Format(1.005, "###0.00"), "1.01");
    EXPECT_EQ(Format(2.675, "###0.00"), "2.68");
    EXPECT_EQ(Format(9.9995, "###0.000"), "10.000");
    EXPECT_EQ(Format(99999.996, "###0.00"), "100000.00");
    EXPECT_EQ(Format(2.0, "###0.000"), "2.000");
    EXPECT_EQ(Format(0.5, "###0.00"), "0.50");
    EXPECT_EQ(Format(-1234.5678, "###0.00"), "-1234.57");
    EXPECT_EQ(Format(-0.001, "###0.00"), "-0.00");                    // the sign stays, as in VB
    EXPECT_EQ(Format(Currency::FromScaled(125), "###0.00"), "0.01");  // 0.0125 -> 0.01
    EXPECT_EQ(Format(Currency::FromScaled(-1250), "###0.00"), "-0.13");
    EXPECT_EQ(Format(1.23456789f, "0.000000"), "1.234568");
}

TEST_F(FormatNumberTest, HashesAndGrouping) {
    EXPECT_EQ(Format(std::int16_t{0}, "#0"), "0");
    EXPECT_EQ(Format(std::int16_t{5}, "#0"), "5");
    EXPECT_EQ(Format(std::int32_t{1234}, "#0"), "1234");
    EXPECT_EQ(Format(0.0, "#"), "");
    EXPECT_EQ(Format(0.5, "#.00"), ".50");
    EXPECT_EQ(Format(1.5, "0.##"), "1.5");
    EXPECT_EQ(Format(2.0, "0.##"), "2.");
    EXPECT_EQ(Format(1.25, "0.0#"), "1.25");
    EXPECT_EQ(Format(1.2, "0.0#"), "1.2");
    EXPECT_EQ(Format(1234567.0, "#,##0"), "1,234,567");
    EXPECT_EQ(Format(123.0, "#,##0"), "123");
    EXPECT_EQ(Format(0.0, "#,##0"), "0");
    EXPECT_EQ(Format(-1234.0, "#,##0"), "-1,234");
    EXPECT_EQ(Format(999.5, "#,##0"), "1,000");
    EXPECT_EQ(Format(1234.0, "0000"), "1234");  // a lone comma-free picture does not group
}

TEST_F(FormatNumberTest, LiteralsTextsAndSpecialValues) {
    EXPECT_EQ(Format(5.0, "$0.00 \"Bs\""), "$5.00 Bs");
    EXPECT_EQ(Format(-5.0, "\\[0\\]"), "-[5]");
    EXPECT_EQ(Format(std::string("7"), "00"), "07");
    EXPECT_EQ(Format(std::string("abc"), "00"), "abc");
    EXPECT_EQ(Format(true, "0"), "-1");
    EXPECT_EQ(Format(Empty{}, "00"), "");
    EXPECT_EQ(Format(Null{}, "00"), "");
    EXPECT_EQ(Format(12.5, ""), "12.5");
    EXPECT_THROW(Format(ErrorValue{5}, "00"), VbError);
    EXPECT_EQ(Format(std::string("z1f-\xF1o"), ">"), "Z1F-\xD1O");
    EXPECT_EQ(Format(std::string("AB\xC9"), "<"), "ab\xE9");
    EXPECT_EQ(Format(12.5, ">"), "12.5");
}

TEST_F(FormatNumberTest, DecimalSymbolAndGroupingComeFromTheLocale) {
    LocaleFormat venezuela;
    venezuela.decimal_symbol = ",";
    venezuela.thousands_separator = ".";
    ReplaceLocaleFormat(venezuela);
    EXPECT_EQ(Format(1234.5, "###0.00"), "1234,50");
    EXPECT_EQ(Format(1234567.0, "#,##0"), "1.234.567");
    EXPECT_EQ(Format(std::string("7,5"), "0.0"), "7,5");
}

TEST_F(FormatNumberTest, GroupSizesFollowTheLocale) {
    LocaleFormat locale;
    locale.grouping = "3;2;0";
    locale.currency_grouping = "3";
    ReplaceLocaleFormat(locale);
    EXPECT_EQ(Format(1234567890.0, "#,##0"), "1,23,45,67,890");
    EXPECT_EQ(Format(999.0, "#,##0"), "999");
    EXPECT_EQ(Format(1234567.5, "Currency"), "$1234,567.50");
    locale.grouping = "0";
    ReplaceLocaleFormat(locale);
    EXPECT_EQ(Format(1234567.0, "#,##0"), "1234567");
}

TEST_F(FormatNumberTest, CurrencyUsesTheLocaleOrders) {
    EXPECT_EQ(Format(Currency::FromScaled(12345000), "Currency"), "$1,234.50");
    EXPECT_EQ(Format(Currency::FromScaled(-12345000), "Currency"), "-$1,234.50");
    EXPECT_EQ(Format(0.005, "currency"), "$0.01");
    EXPECT_EQ(Format(std::int32_t{0}, "Currency"), "$0.00");

    LocaleFormat bolivar;
    bolivar.currency_symbol = "Bs.";
    bolivar.currency_decimal_symbol = ",";
    bolivar.currency_thousands_separator = ".";
    bolivar.currency_positive_order = 2;
    bolivar.currency_negative_order = 12;
    ReplaceLocaleFormat(bolivar);
    EXPECT_EQ(Format(1234567.891, "Currency"), "Bs. 1.234.567,89");
    EXPECT_EQ(Format(-3.0, "Currency"), "Bs. -3,00");

    bolivar.currency_negative_order = 0;
    bolivar.currency_positive_order = 3;
    bolivar.currency_digits = 0;
    ReplaceLocaleFormat(bolivar);
    EXPECT_EQ(Format(-3.5, "Currency"), "(Bs.4)");
    EXPECT_EQ(Format(3.4, "Currency"), "3 Bs.");
}

}  // namespace
}  // namespace corvid::automation
