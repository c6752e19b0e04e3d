#include "records/printer_response1.h"

#include <gtest/gtest.h>

#include <memory>

#include "automation/locale_format.h"
#include "support/fake_clock.h"
#include "support/memory_settings_source.h"
#include "support/vb_error_testing.h"

namespace corvid::records {
namespace {

// Every field holds a value of its own, so a field read from the wrong place shows.
const Fields kShort = {"S105", "0012345", "120",  "8",      "33",   "1234", "15",
                       "16",   "J-1",     "zpa1", "240517", "1030", "9",    "2"};
const Fields kLong = {"S102", "100", "120", "8",  "40",  "1",  "50",   "2",
                      "33",   "4",   "16",  "15", "J-2", "Z1", "2359", "991231"};

class PrinterResponse1Test : public ::testing::Test {
  protected:
    PrinterResponse1Test() : locale_(automation::ReplaceLocaleFormat({})) {
        for (const char* key : {"numeroCajero", "ndnfDia"}) {
            settings_->SetUserValue("ORV", "Config\\NimbusPF\\Response1", key, "7");
        }
    }
    ~PrinterResponse1Test() override { automation::ReplaceLocaleFormat(locale_); }

    // The notes are not part of the text.
    std::string Read(const Fields& v) {
        record_.loadFromResponse(v);
        return record_.toString() + "ND " + std::to_string(record_.numeroUltimaND) + "/" +
               std::to_string(record_.notasDebitoDia) + " NC " +
               std::to_string(record_.numeroUltimaNC) + "/" +
               std::to_string(record_.notasCreditoDia);
    }

    automation::LocaleFormat locale_;
    host::ScopedSettingsSource settings_;
    std::shared_ptr<automation::FakeClock> clock_ = std::make_shared<automation::FakeClock>();
    automation::ScopedClock scoped_clock_{clock_};
    PrinterResponse1 record_;
};

TEST_F(PrinterResponse1Test, EachLayoutReadsEveryFieldFromItsPlace) {
    record_.numeroUltimaND = record_.notasDebitoDia = 5;  // the short layout has none
    Fields fifteen = kShort;
    fifteen.push_back("1");  // 15 fields are still the short layout
    for (const Fields& v : {kShort, fifteen}) {
        EXPECT_EQ(Read(v),
                  "numeroCajero = 005\r\nTotalVentasDiarias = $123.45\r\n"
                  "NumeroUltimaFactura = 000120\r\nfacturasDia = 0008\r\nultimoDNF = 000033\r\n"
                  "ndfDia = 1,234\r\nnCierres = 15\r\ncontadorReportes = 16\r\nRIF = J-1\r\n"
                  "Serial = ZPA1\r\nFecha = 17-05-2024 10:30\r\nND 0/0 NC 9/2");
    }
    // The time comes before the date here.
    EXPECT_EQ(Read(kLong),
              "numeroCajero = 002\r\nTotalVentasDiarias = $1.00\r\n"
              "NumeroUltimaFactura = 000120\r\nfacturasDia = 0008\r\nultimoDNF = 000033\r\n"
              "ndfDia = 4\r\nnCierres = 15\r\ncontadorReportes = 16\r\nRIF = J-2\r\n"
              "Serial = Z1\r\nFecha = 31-12-2099 23:59\r\nND 40/1 NC 50/2");
    EXPECT_FALSE(record_.isFake);
}

TEST_F(PrinterResponse1Test, AShortReplyWithoutCreditNotesCountsNone) {
    const std::string twelve = "S105\n0\n120\n8\n33\n1234\n15\n16\nJ-1\nzpa1\n240517\n1030";
    record_.loadFromResponse(twelve + "\n9\n");  // a trailing line feed is one more field
    EXPECT_EQ(record_.numeroUltimaNC, 9);
    EXPECT_EQ(record_.notasCreditoDia, 0);
    record_.loadFromResponse(twelve);
    EXPECT_EQ(record_.numeroUltimaNC, 0);
}

TEST_F(PrinterResponse1Test, AReplyThatDoesNotReadFallsBackToTheSettings) {
    Fields badShort = kShort, overflowing = kLong;
    badShort[2] = "12x";
    overflowing[5] = "40000";  // more notes than 16 bits hold
    for (const Fields& v : {badShort, overflowing, Fields{}}) {
        PrinterResponse1 record;
        record.loadFromResponse(v);
        // The sales total comes from the cashier's key too.
        EXPECT_EQ(record.numeroCajero, 7);
        EXPECT_EQ(record.totalVentasDiarias, automation::Currency::FromDouble(7));
        EXPECT_EQ(record.ndfDia, 7);
        EXPECT_EQ(record.RIF, "J-12345678-9");
        EXPECT_EQ(record.Fecha, clock_->Now());
    }
}

TEST_F(PrinterResponse1Test, CountersReadOnTheirOwnTakeFixedFieldsWhateverTheLayout) {
    EXPECT_EQ(LastInvoiceNumber(kShort), 120);
    EXPECT_EQ(LastInvoiceNumber(kLong), 120);
    EXPECT_EQ(LastClosureNumber(kShort), 15);  // the closures in the short layout
    EXPECT_EQ(LastClosureNumber(kLong), 50);   // the last credit note in the long one
    EXPECT_EQ(test_support::ErrorNumberOf([] { LastInvoiceNumber({"S1", "0", "abc"}); }), 13);
    EXPECT_EQ(test_support::ErrorNumberOf([] { LastClosureNumber({"S1", "0", "1"}); }), 9);
}

}  // namespace
}  // namespace corvid::records
