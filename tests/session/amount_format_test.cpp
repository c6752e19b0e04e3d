#include "session/session_fixture.h"

namespace corvid::session::testing {
namespace {

TEST_F(SessionTest, FallbackFormatsFollowFlag21) {
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
        PrinterFiscal s(line_);
        s.f21 = c.f21;
        EXPECT_EQ(s.FormatPrecio(12.5), c.price) << "f21 " << c.f21;
        EXPECT_EQ(s.FormatCantidad(1.25), c.quantity) << "f21 " << c.f21;
        EXPECT_EQ(s.FormatMedio(99.99), c.payment) << "f21 " << c.f21;
    }
}

TEST_F(SessionTest, SettingsWinOverTheFallbackAndAreCached) {
    Set("DigitosPrecio", "6");
    Set("DecimalesPrecio", "1");
    PrinterFiscal& s = Session();
    EXPECT_EQ(s.FormatPrecio(12.34), "000123");
    Set("DigitosPrecio", "9");  // read once per session
    EXPECT_EQ(s.FormatPrecio(12.34), "000123");
}

TEST_F(SessionTest, OneMissingSettingOfAPairMeansTheFallbackPair) {
    Set("DigitosCantidad", "5");
    EXPECT_EQ(Session().FormatCantidad(2), "00002000");
}

TEST_F(SessionTest, AmountsAreRoundedUpAtHalfAndNeverCut) {
    PrinterFiscal& s = Session();
    EXPECT_EQ(s.FormatPrecio(0.005), "0000000001");
    EXPECT_EQ(s.FormatPrecio(0.0049), "0000000000");
    EXPECT_EQ(s.FormatPrecio(123456789.5), "12345678950");
}

}  // namespace
}  // namespace corvid::session::testing
