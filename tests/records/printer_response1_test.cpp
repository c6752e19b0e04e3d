#include "records/printer_response1.h"

#include <gtest/gtest.h>

#include <memory>

#include "automation/dates.h"
#include "automation/locale_format.h"
#include "support/fake_clock.h"
#include "support/memory_settings_source.h"

namespace corvid::records {
namespace {

using automation::Currency;

std::string Join(const std::vector<std::string>& fields) {
    std::string s;
    for (std::size_t i = 0; i < fields.size(); ++i) s += (i ? "\n" : "") + fields[i];
    return s;
}

class PrinterResponse1Test : public ::testing::Test {
  protected:
    PrinterResponse1Test() : locale_(automation::ReplaceLocaleFormat({})) {
        for (const char* key : {"numeroCajero", "ndnfDia"}) {
            settings_->SetUserValue("ORV", "Config\\NimbusPF\\Response1", key, "7");
        }
    }
    ~PrinterResponse1Test() override { automation::ReplaceLocaleFormat(locale_); }

    bool IsFake(const PrinterResponse1& r) const {
        // The sales total comes from the cashier's key too.
        return r.numeroCajero == 7 && r.totalVentasDiarias == Currency::FromScaled(70000) &&
               r.ndfDia == 7 && r.RIF == "J-12345678-9" && r.Fecha == clock_->Now();
    }

    automation::LocaleFormat locale_;
    host::ScopedSettingsSource settings_;
    std::shared_ptr<automation::FakeClock> clock_ = std::make_shared<automation::FakeClock>();
    automation::ScopedClock scoped_clock_{clock_};
    PrinterResponse1 record_;
    std::vector<std::string> short_ = {"S105", "0012345", "120",  "8",      "33",   "1234", "15",
                                       "16",   "J-1",     "zpa1", "240517", "1030", "9",    "2"};
    std::vector<std::string> long_ = {"S102", "100", "120", "8",  "40",  "1",  "50",   "2",
                                      "33",   "4",   "16",  "15", "J-1", "Z1", "2359", "991231"};
};

TEST_F(PrinterResponse1Test, ShortLayoutHasNoDebitNotesAndItsOwnCounterOrder) {
    record_.numeroUltimaND = 5;
    record_.loadFromResponse(Join(short_));
    EXPECT_EQ(record_.toString(),
              "numeroCajero = 005\r\nTotalVentasDiarias = $123.45\r\n"
              "NumeroUltimaFactura = 000120\r\nfacturasDia = 0008\r\nultimoDNF = 000033\r\n"
              "ndfDia = 1,234\r\nnCierres = 15\r\ncontadorReportes = 16\r\nRIF = J-1\r\n"
              "Serial = ZPA1\r\nFecha = 17-05-2024 10:30\r\n");
    EXPECT_EQ(record_.numeroUltimaND, 0);
    EXPECT_EQ(record_.numeroUltimaNC, 9);
    EXPECT_EQ(record_.notasCreditoDia, 2);

    short_.push_back("1");  // 15 fields are still the short layout
    record_.loadFromResponse(Join(short_));
    EXPECT_EQ(record_.Serial, "zpa1");
}

TEST_F(PrinterResponse1Test, ShortReplyWithoutCreditNotesCountsNone) {
    short_.resize(12);
    record_.notasCreditoDia = 4;
    // A trailing line feed is one more, empty, field.
    record_.loadFromResponse(Join(short_) + "\n9\n");
    EXPECT_EQ(record_.numeroUltimaNC, 9);
    EXPECT_EQ(record_.notasCreditoDia, 0);
    record_.loadFromResponse(Join(short_));
    EXPECT_EQ(record_.numeroUltimaNC, 0);
}

TEST_F(PrinterResponse1Test, LongLayoutReadsNotesCountersAndTimeBeforeDate) {
    record_.loadFromResponse(Join(long_));
    EXPECT_EQ(record_.numeroUltimaND, 40);
    EXPECT_EQ(record_.notasDebitoDia, 1);
    EXPECT_EQ(record_.numeroUltimaNC, 50);
    EXPECT_EQ(record_.notasCreditoDia, 2);
    EXPECT_EQ(record_.ultimoDNF, 33);
    EXPECT_EQ(record_.contadorReportes, 16);
    EXPECT_EQ(record_.nCierres, 15);
    EXPECT_EQ(record_.Fecha, automation::CombineDateTime(automation::DateSerial(2099, 12, 31),
                                                         automation::TimeSerial(23, 59, 0)));
}

TEST_F(PrinterResponse1Test, AReplyThatDoesNotReadFallsBackToTheSettings) {
    record_.numeroUltimaND = 6;
    short_[2] = "12x";
    record_.loadFromResponse(Join(short_));
    EXPECT_TRUE(IsFake(record_));
    EXPECT_EQ(record_.numeroUltimaND, 6);  // the fake values leave the notes alone

    long_[5] = "40000";  // more notes than 16 bits hold
    PrinterResponse1 overflow;
    overflow.loadFromResponse(Join(long_));
    EXPECT_TRUE(IsFake(overflow));

    PrinterResponse1 empty;
    empty.loadFromResponse("");
    EXPECT_TRUE(IsFake(empty));
}

}  // namespace
}  // namespace corvid::records
