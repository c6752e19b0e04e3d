#include "documents/amount_formats.h"

#include <gtest/gtest.h>

#include "host/library_settings.h"
#include "support/memory_settings_source.h"

namespace corvid::documents {
namespace {

class AmountFormatsTest : public ::testing::Test {
  protected:
    void Set(const std::string& key, const std::string& value) {
        settings_->SetIniValue(host::kApplication, host::kSessionSection, key, value);
    }
    // Formats whose flag 21 is `flag21`, counting how often it is asked for.
    AmountFormats Formats(std::int16_t flag21 = 0) {
        return AmountFormats([this, flag21] {
            ++flagQueries_;
            return flag21;
        });
    }

    host::ScopedSettingsSource settings_;
    int flagQueries_ = 0;
};

TEST_F(AmountFormatsTest, FallbackFormatsFollowFlag21) {
    struct Case {
        std::int16_t f21;
        const char *price, *quantity, *payment;
    };
    // 12.5 as price, 1.25 as quantity, 99.99 as payment.
    const Case cases[] = {
        {0, "0000001250", "00001250", "000000009999"},
        {2, "0000012500", "00001250", "000000009999"},
        {3, "0000125000", "00001250", "000000009999"},
        {11, "0000000125", "00001250", "000000001000"},
        {12, "0000000013", "00001250", "000000000100"},
        {30, "0000000000001250", "00000000000001250", "00000000000009999"},
    };
    for (const Case& c : cases) {
        AmountFormats formats = Formats(c.f21);
        EXPECT_EQ(formats.Format(AmountKind::kPrice, 12.5), c.price) << "f21 " << c.f21;
        EXPECT_EQ(formats.Format(AmountKind::kQuantity, 1.25), c.quantity) << "f21 " << c.f21;
        EXPECT_EQ(formats.Format(AmountKind::kPayment, 99.99), c.payment) << "f21 " << c.f21;
    }
}

TEST_F(AmountFormatsTest, SettingsWinOverTheFallbackInPairsAndAreReadOnce) {
    Set("DigitosPrecio", "6");
    Set("DecimalesPrecio", "1");
    AmountFormats formats = Formats();
    EXPECT_EQ(formats.Format(AmountKind::kPrice, 12.34), "000123");
    Set("DigitosPrecio", "9");
    EXPECT_EQ(formats.Format(AmountKind::kPrice, 12.34), "000123");
    EXPECT_EQ(flagQueries_, 0);  // the printer is not asked when the settings answer
    // One missing setting of a pair means the fallback pair.
    Set("DigitosCantidad", "5");
    EXPECT_EQ(Formats().Format(AmountKind::kQuantity, 2), "00002000");
    EXPECT_EQ(flagQueries_, 1);
}

TEST_F(AmountFormatsTest, AmountsAreRoundedUpAtHalf) {
    AmountFormats formats = Formats();
    EXPECT_EQ(formats.Format(AmountKind::kPrice, 0.005), "0000000001");
    EXPECT_EQ(formats.Format(AmountKind::kPrice, 0.0049), "0000000000");
}

}  // namespace
}  // namespace corvid::documents
