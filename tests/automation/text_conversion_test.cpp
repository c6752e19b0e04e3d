#include <gtest/gtest.h>

#include "automation/conversions.h"
#include "automation/locale_format.h"
#include "automation/variant.h"
#include "support/outcome_table.h"

namespace corvid::automation {
namespace {

TEST(TextConversionTest, ValReadsTheLeadingNumberAndCDblAndCBoolTheWholeText) {
    const LocaleFormat saved = ReplaceLocaleFormat(LocaleFormat{});
    test_support::ExpectNumbers(
        {NUMBER_IS(Val("  \t-12abc"), -12), NUMBER_IS(Val("-.25"), -0.25),
         NUMBER_IS(Val("7,5"), 7),                // only "." is a decimal point
         NUMBER_IS(Val("1 615 198th"), 1615198),  // blanks are skipped inside, too
         NUMBER_IS(Val("1.5d-2"), 0.015),
         NUMBER_IS(Val("2E+x"), 2),  // an exponent without digits is not part of the number
         RAISES(Val("1E400"), 6), NUMBER_IS(Val("&hff zz"), 255),
         NUMBER_IS(Val("&HFFFF"), -1),  // 16-bit value
         NUMBER_IS(Val("&H10000"), 65536), RAISES(Val("&H100000000"), 6),

         // A text that does not start with a number has none, rather than 0.
         NUMBER_IS(TryLeadingNumber("-").has_value(), false),

         NUMBER_IS(TryLeadingNumber("5.").value(), 5), NUMBER_IS(CDbl("-1,234.5"), -1234.5),
         NUMBER_IS(CDbl("&H10"), 16), RAISES(CDbl(""), 13), RAISES(CDbl("12abc"), 13),
         NUMBER_IS(CBoolText(" tRUE "), true), NUMBER_IS(CBoolText("0.5"), true),
         RAISES(CBoolText("Truex"), 13)});
    ReplaceLocaleFormat(saved);
}

TEST(TextConversionTest, CDblAndCStrFollowTheLocaleDecimalSymbol) {
    LocaleFormat comma;
    comma.decimal_symbol = ",";
    comma.thousands_separator = ".";
    const LocaleFormat saved = ReplaceLocaleFormat(comma);
    EXPECT_EQ(CDbl("1.234,5"), 1234.5);
    EXPECT_EQ(Val("7,5"), 7);  // Val does not follow the locale
    // The trace writes the clock this way: "43200,5" on a Spanish-locale Windows.
    EXPECT_EQ(CStr(Variant(43200.5f)), "43200,5");
    EXPECT_EQ(CStr(Variant(1.5e20)), "1,5E+20");
    ReplaceLocaleFormat(saved);
}

}  // namespace
}  // namespace corvid::automation
