#include "records/printer_response3.h"

#include <gtest/gtest.h>

#include "host/trace_log.h"
#include "support/vb_error_testing.h"

namespace corvid::records {
namespace {

class PrinterResponse3Test : public ::testing::Test {
  protected:
    PrinterResponse3Test() {
        trace_.SetIsDebug(true);
        trace_.SetFileEnabled(false);
        trace_.AddSink([this](const std::string& line) { traced_ += line + "\n"; });
    }
    PrinterResponse3 Load(const Fields& v) {
        PrinterResponse3 record;
        record.loadFromResponse(v, trace_);
        return record;
    }
    bool Traced(const std::string& text) const { return traced_.find(text) != std::string::npos; }

    host::TraceLog trace_;
    std::string traced_;
};

TEST_F(PrinterResponse3Test, RatesKindsIgtfAndFlags) {
    const PrinterResponse3 r = Load({"11600", "00800", "03100", "0250", "0102030405"});
    EXPECT_TRUE(r.TipoTasa1);
    EXPECT_FALSE(r.TipoTasa2);
    EXPECT_DOUBLE_EQ(r.ValorTasa1, 16);
    EXPECT_DOUBLE_EQ(r.ValorTasa3, 31);
    EXPECT_DOUBLE_EQ(r.TasaIGTF, 2.5);
    EXPECT_EQ(r.nFlags, 4);
    EXPECT_EQ(r.Flag(4), 5);
    EXPECT_EQ(r.Flag(5), -1);
    EXPECT_EQ(r.Flag(-1), -1);
    EXPECT_FALSE(r.isFake);
    EXPECT_EQ(r.IndexOfRate(8.05), 2);
    EXPECT_EQ(r.IndexOfRate(31), 3);
    EXPECT_EQ(r.IndexOfRate(12), std::nullopt);  // no rate within 0.1
}

TEST_F(PrinterResponse3Test, WithoutAnIgtfFieldTheRateIsThreeAndFlagsComeFromField3) {
    const PrinterResponse3 r = Load({"01600", "00800", "03100", "0021"});
    EXPECT_DOUBLE_EQ(r.TasaIGTF, 3);
    EXPECT_EQ(r.Flag(1), 21);
    EXPECT_TRUE(Traced("PrinterResponse3.LoadFromResponse, indiceFlags = 3"));
    EXPECT_DOUBLE_EQ(Load({"01600", "00800", "03100", "0250", ""}).TasaIGTF, 3);
}

TEST_F(PrinterResponse3Test, ABadFieldEndsTheParseKeepingWhatCameBefore) {
    const PrinterResponse3 r = Load({"01600", "0xx", "03100", "0021"});
    EXPECT_DOUBLE_EQ(r.ValorTasa1, 16);
    EXPECT_DOUBLE_EQ(r.ValorTasa3, 0);
    EXPECT_TRUE(Traced("PrinterResponse3.LoadFormResponse. Error: "));
    const PrinterResponse3 overflow = Load({"099999", "00800", "03100", "00"});  // above 327.67
    EXPECT_DOUBLE_EQ(overflow.ValorTasa1, 0);
    EXPECT_EQ(overflow.Flag(0), -1);
}

TEST_F(PrinterResponse3Test, FakeClearsRatesButKeepsFlagsAndPrintsItself) {
    PrinterResponse3 r = Load({"11600", "00800", "03100", "0102"});
    r.loadFake();
    EXPECT_TRUE(r.isFake);
    EXPECT_FALSE(r.TipoTasa1);
    EXPECT_EQ(r.Flag(1), 2);
    EXPECT_EQ(r.toString(),
              "Tasa1: ADICIONAL\r\nValor 1: 0\r\nTasa2: ADICIONAL\r\nValor 2: 0\r\n"
              "Tasa3: ADICIONAL\r\nValor 3: 0\r\nFLAGS: 0102\r\n");
}

TEST(RateOfFieldTest, ReadsTheLeadingNumberAfterTheKindInHundredths) {
    const Fields s3 = {"11600", "0825x", "1", "0"};
    EXPECT_DOUBLE_EQ(RateOfField(s3, 0), 16);
    EXPECT_DOUBLE_EQ(RateOfField(s3, 1), 8.25);
    EXPECT_DOUBLE_EQ(RateOfField(s3, 2), 0);
    EXPECT_EQ(test_support::ErrorNumberOf([&] { RateOfField(s3, 4); }), 9);
}

}  // namespace
}  // namespace corvid::records
