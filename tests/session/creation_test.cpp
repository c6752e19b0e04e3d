#include "documents/address_limits.h"
#include "session/session_fixture.h"
#include "support/vb_error_testing.h"

namespace corvid::session::testing {
namespace {

TEST_F(SessionTest, DefaultsWithoutAnySetting) {
    PrinterFiscal& s = Session();
    EXPECT_EQ(s.timeOut(), 10);
    EXPECT_EQ(s.retries(), 3);
    EXPECT_FALSE(s.skipChecks());
    EXPECT_FALSE(s.testMode());
    EXPECT_EQ(s.columnasDescripcion(), 28);
    EXPECT_EQ(s.numTasas(), 0);
    EXPECT_EQ(s.port(), 0);
    EXPECT_EQ(documents::AnchoDireccion(), 40);
    EXPECT_EQ(documents::LineasDireccion(), 10);
}

TEST_F(SessionTest, SettingsReadAtCreationWithTheirConversions) {
    Set("TimeOut", "7,5");    // either decimal separator; rounds half to even
    Set("Retries", "99999");  // does not fit 16 bits: the field keeps its default
    Set("SkipChecks", "True");
    Set("ColumnasDescripcion", "40");
    PrinterFiscal& s = Session();
    EXPECT_EQ(s.timeOut(), 8);
    EXPECT_EQ(s.retries(), 3);
    EXPECT_TRUE(s.skipChecks());
    EXPECT_EQ(s.columnasDescripcion(), 40);
}

TEST_F(SessionTest, RatesStopAtTheFirstGapAndAtSeven) {
    Set("0", "16", host::kRatesSection);
    Set("1", "8.5%", host::kRatesSection);
    Set("3", "31", host::kRatesSection);
    PrinterFiscal& s = Session();
    ASSERT_EQ(s.numTasas(), 2);
    EXPECT_DOUBLE_EQ(s.tasas()[0], 16);
    EXPECT_DOUBLE_EQ(s.tasas()[1], 8.5);
}

TEST_F(SessionTest, AtMostSevenRatesAreRead) {
    for (int i = 0; i < 8; ++i) Set(std::to_string(i), std::to_string(10 + i), host::kRatesSection);
    EXPECT_EQ(Session().numTasas(), 7);
    EXPECT_DOUBLE_EQ(Session().tasas()[6], 16);
}

TEST_F(SessionTest, PrinterModelFromSettingOrSerialPrefix) {
    PrinterFiscal& s = Session();
    EXPECT_EQ(s.tipoPrinter(), SRP350);  // empty serial
    s.SetSerialPrinter("Z6B1234567");
    EXPECT_EQ(s.tipoPrinter(), DT230);
    s.SetSerialPrinter("Z7A1234567");
    EXPECT_EQ(s.tipoPrinter(), HKA112);
    s.SetSerialPrinter("Z1F1234567");
    EXPECT_EQ(s.tipoPrinter(), SRP812);
    s.SetSerialPrinter("Z1");
    EXPECT_EQ(s.tipoPrinter(), SRP350);
    // Read on every call, returned unchecked.
    Set("TipoPrinter", "7");
    EXPECT_EQ(s.tipoPrinter(), 7);
}

TEST_F(SessionTest, ErrorFlagBeyondSixteenBitsOverflows) {
    PrinterFiscal& s = Session();
    s.outcome().pfError = -32768;
    EXPECT_EQ(s.lError(), -32768);
    s.outcome().pfError = 0x10002;
    EXPECT_EQ(test_support::ErrorNumberOf([&] { s.lError(); }), automation::vb_errors::kOverflow);
    EXPECT_EQ(s.lStatus(), 0);
}

TEST_F(SessionTest, DelaySleepsFactorTimesUnits) {
    Set("FactorDelay", "0,25");
    Session().Demora(4);
    EXPECT_EQ(fakeClock_->slept_milliseconds(), 1000);
    EXPECT_LE(fakeClock_->sleep_calls(), 1);
}

}  // namespace
}  // namespace corvid::session::testing
