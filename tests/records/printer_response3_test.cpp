#include "records/printer_response3.h"

#include <gtest/gtest.h>

#include "host/trace_log.h"

namespace corvid::records {
namespace {

using Fields = std::vector<std::string>;

class PrinterResponse3Test : public ::testing::Test {
  protected:
    PrinterResponse3Test() {
        trace_.SetIsDebug(true);
        trace_.SetFileEnabled(false);
        trace_.AddSink([this](const std::string& line) { lines_.push_back(line); });
    }
    bool Traced(const std::string& text) const {
        for (const auto& line : lines_) {
            if (line.find(text) != std::string::npos) return true;
        }
        return false;
    }

    host::TraceLog trace_;
    std::vector<std::string> lines_;
    PrinterResponse3 record_;
};

TEST_F(PrinterResponse3Test, RatesKindsIgtfAndFlags) {
    record_.loadFromResponse({"11600", "00800", "03100", "0250", "0102030405"}, trace_);
    EXPECT_TRUE(record_.TipoTasa1);
    EXPECT_FALSE(record_.TipoTasa2);
    EXPECT_DOUBLE_EQ(record_.ValorTasa1, 16);
    EXPECT_DOUBLE_EQ(record_.ValorTasa3, 31);
    EXPECT_DOUBLE_EQ(record_.TasaIGTF, 2.5);
    EXPECT_EQ(record_.nFlags, 4);
    EXPECT_EQ(record_.Flag(4), 5);
    EXPECT_EQ(record_.Flag(5), -1);
    EXPECT_EQ(record_.Flag(-1), -1);
    EXPECT_FALSE(record_.isFake);
}

TEST_F(PrinterResponse3Test, WithoutAnIgtfFieldTheRateIsThreeAndFlagsComeFromField3) {
    record_.loadFromResponse({"01600", "00800", "03100", "0021"}, trace_);
    EXPECT_DOUBLE_EQ(record_.TasaIGTF, 3);
    EXPECT_EQ(record_.Flag(1), 21);
    EXPECT_TRUE(Traced("PrinterResponse3.LoadFromResponse, indiceFlags = 3"));

    PrinterResponse3 emptyFourth;
    emptyFourth.loadFromResponse({"01600", "00800", "03100", "0250", ""}, trace_);
    EXPECT_DOUBLE_EQ(emptyFourth.TasaIGTF, 3);
}

TEST_F(PrinterResponse3Test, ABadFieldEndsTheParseKeepingWhatCameBefore) {
    record_.loadFromResponse({"01600", "0xx", "03100", "0021"}, trace_);
    EXPECT_DOUBLE_EQ(record_.ValorTasa1, 16);
    EXPECT_DOUBLE_EQ(record_.ValorTasa3, 0);
    EXPECT_TRUE(Traced("PrinterResponse3.LoadFormResponse. Error: "));

    PrinterResponse3 overflow;
    overflow.loadFromResponse({"099999", "00800", "03100", "00"}, trace_);  // above 327.67
    EXPECT_DOUBLE_EQ(overflow.ValorTasa1, 0);
    EXPECT_EQ(overflow.Flag(0), -1);
}

TEST_F(PrinterResponse3Test, FakeClearsRatesButKeepsFlagsAndPrintsItself) {
    record_.loadFromResponse({"11600", "00800", "03100", "0102"}, trace_);
    record_.loadFake();
    EXPECT_TRUE(record_.isFake);
    EXPECT_DOUBLE_EQ(record_.ValorTasa1, 0);
    EXPECT_FALSE(record_.TipoTasa1);
    EXPECT_EQ(record_.Flag(1), 2);
    EXPECT_EQ(record_.toString(),
              "Tasa1: ADICIONAL\r\nValor 1: 0\r\nTasa2: ADICIONAL\r\nValor 2: 0\r\n"
              "Tasa3: ADICIONAL\r\nValor 3: 0\r\nFLAGS: 0102\r\n");
}

}  // namespace
}  // namespace corvid::records
