#include "documents/address_limits.h"
#include "session/session_fixture.h"
#include "support/vb_error_testing.h"

namespace corvid::session::testing {
namespace {

TEST_F(SessionTest, SettingsReadAtCreationWithTheirDefaultsAndConversions) {
    PrinterFiscal defaults(line_);
    EXPECT_EQ(defaults.timeOut(), 10);
    EXPECT_EQ(defaults.retries(), 3);
    EXPECT_FALSE(defaults.skipChecks());
    EXPECT_FALSE(defaults.testMode());
    EXPECT_EQ(defaults.columnasDescripcion(), 28);
    EXPECT_EQ(defaults.numTasas(), 0);
    EXPECT_EQ(documents::AnchoDireccion(), 40);
    EXPECT_EQ(documents::LineasDireccion(), 10);

    Set("TimeOut", "7,5");    // either decimal separator; rounds half to even
    Set("Retries", "99999");  // does not fit 16 bits: the field keeps its default
    Set("SkipChecks", "True");
    Set("ColumnasDescripcion", "40");
    // The rates stop at the first gap, and at seven.
    for (int i = 0; i < 8; ++i)
        Set(std::to_string(i), std::to_string(10 + i) + "%", host::kRatesSection);
    PrinterFiscal& s = Session();
    EXPECT_EQ(s.timeOut(), 8);
    EXPECT_EQ(s.retries(), 3);
    EXPECT_TRUE(s.skipChecks());
    EXPECT_EQ(s.columnasDescripcion(), 40);
    EXPECT_EQ(s.numTasas(), 7);
    EXPECT_DOUBLE_EQ(s.tasas()[6], 16);
    Set("3", "nil", host::kRatesSection);
    EXPECT_EQ(PrinterFiscal(line_).numTasas(), 3);
}

TEST_F(SessionTest, ErrorFlagBeyondSixteenBitsOverflowsAndDelaySleeps) {
    PrinterFiscal& s = Session();
    s.outcome().pfError = -32768;
    EXPECT_EQ(s.lError(), -32768);
    s.outcome().pfError = 0x10002;
    EXPECT_EQ(test_support::ErrorNumberOf([&] { s.lError(); }), automation::vb_errors::kOverflow);
    EXPECT_EQ(s.lStatus(), 0);
    Set("FactorDelay", "0,25");
    s.Demora(4);
    EXPECT_EQ(fakeClock_->slept_milliseconds(), 1000);
    EXPECT_LE(fakeClock_->sleep_calls(), 1);
}

}  // namespace
}  // namespace corvid::session::testing
