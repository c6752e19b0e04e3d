#include <gtest/gtest.h>
#include <windows.h>

#include "automation/format.h"
#include "automation/locale_format.h"

namespace corvid::automation {
namespace {

std::string WindowsCurrency(const char* number) {
    char buffer[128] = {};
    const int length =
        GetCurrencyFormatA(LOCALE_USER_DEFAULT, 0, number, nullptr, buffer, sizeof buffer);
    return length > 0 ? std::string(buffer, static_cast<std::size_t>(length - 1)) : "";
}

// The user's locale drives "Currency" exactly as Windows formats currency itself.
TEST(SystemLocaleTest, CurrencyMatchesWindows) {
    const LocaleFormat saved = ReplaceLocaleFormat(SystemLocaleFormat());
    EXPECT_EQ(Format(1234.5, "Currency"), WindowsCurrency("1234.5"));
    EXPECT_EQ(Format(-1234.5, "Currency"), WindowsCurrency("-1234.5"));
    EXPECT_EQ(Format(0.0, "Currency"), WindowsCurrency("0"));
    ReplaceLocaleFormat(saved);
}

}  // namespace
}  // namespace corvid::automation
