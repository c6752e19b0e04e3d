#include "automation/format.h"

#include <gtest/gtest.h>

#include "automation/dates.h"
#include "automation/locale_format.h"
#include "support/outcome_table.h"

namespace corvid::automation {
namespace {

const Date kSample = CombineDateTime(DateSerial(2024, 3, 5), TimeSerial(14, 7, 9));

class FormatTest : public ::testing::Test {
  protected:
    void SetUp() override { saved_ = ReplaceLocaleFormat(LocaleFormat{}); }
    void TearDown() override { ReplaceLocaleFormat(saved_); }
    LocaleFormat saved_;
};

// Zeros pad and never cut; values round half away from zero to the picture.
TEST_F(FormatTest, NumberPictures) {
    test_support::ExpectTexts(
        {TEXT_IS(Format(std::int16_t{-5}, "00"), "-05"),

         TEXT_IS(Format(-2.5, "00"), "-03"), TEXT_IS(Format(1.005, "###0.00"), "1.01"),

         TEXT_IS(Format(-0.001, "###0.00"), "-0.00"),  // the sign stays, as in VB
         TEXT_IS(Format(Currency::FromScaled(-1250), "###0.00"), "-0.13"),

         TEXT_IS(Format(-1234.0, "#,##0"), "-1,234"), TEXT_IS(Format(999.5, "#,##0"), "1,000"),
         TEXT_IS(Format(5.0, "$0.00 \"Bs\""), "$5.00 Bs"),

         TEXT_IS(Format(true, "0"), "-1"),

         TEXT_RAISES(Format(ErrorValue{5}, "00"), 13),
         TEXT_IS(Format(std::string("z1f-\xF1o"), ">"), "Z1F-\xD1O"),

         TEXT_IS(Format(Currency::FromScaled(-12345000), "Currency"), "-$1,234.50")});
}

// "m" after hours or before seconds is minutes; "y" alone is the day of the year.
TEST_F(FormatTest, DatePictures) {
    test_support::ExpectTexts({
        TEXT_IS(Format(kSample, "dd-mm-yyyy hh:nn"), "05-03-2024 14:07"),
        TEXT_IS(Format(kSample, "d/m/yy h:n:s"), "5/3/24 14:7:9"),

        TEXT_IS(Format(kSample, "mm:ss"), "07:09"),

        TEXT_IS(Format(DateSerial(2024, 2, 1), "y"), "32"),

        TEXT_IS(Format(Date{-1.25}, "dd-mm-yyyy hh:nn"), "29-12-1899 06:00"),
        TEXT_IS(Format(std::string("45356.25"), "hhnnss"), "060000"),
    });
}

TEST_F(FormatTest, SymbolsGroupsAndCurrencyComeFromTheLocale) {
    LocaleFormat locale;
    locale.decimal_symbol = ",";
    locale.thousands_separator = ".";
    locale.grouping = "3;2;0";
    ReplaceLocaleFormat(locale);
    EXPECT_EQ(Format(1234.5, "###0.00"), "1234,50");
    EXPECT_EQ(Format(1234567890.0, "#,##0"), "1.23.45.67.890");
    locale.currency_symbol = "Bs.";
    locale.currency_decimal_symbol = ",";
    locale.currency_thousands_separator = ".";
    locale.currency_grouping = "3;0";
    locale.currency_positive_order = 2;
    locale.currency_negative_order = 12;
    ReplaceLocaleFormat(locale);
    EXPECT_EQ(Format(1234567.891, "Currency"), "Bs. 1.234.567,89");
    EXPECT_EQ(Format(-3.0, "Currency"), "Bs. -3,00");
    locale.currency_negative_order = 0;
    locale.currency_digits = 0;
    ReplaceLocaleFormat(locale);
    EXPECT_EQ(Format(-3.5, "Currency"), "(Bs.4)");
}

}  // namespace
}  // namespace corvid::automation
