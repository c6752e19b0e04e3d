#include "corvid/document_steps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "corvid/document_files.h"
#include "corvid/step_runner.h"
#include "tools/recording_document_printer.h"

namespace corvid::tool {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::RecordingDocumentPrinter;

constexpr const char* kSale = R"({
  "customer": {"name": "Jos\u00e9 P\u00e9rez", "rif": "V-12345678",
               "address": ["Calle 5", "Caracas"]},
  "items": [
    {"description": "Caf\u00e9", "price": 12.5, "quantity": 2, "rate": 16},
    {"description": "Pan", "price": 3, "quantity": 0.5, "rate": 0}
  ],
  "discounts": [{"percent": 10}, {"amount": 1.25}],
  "payments": [{"means": 1, "amount": 20}, {"means": 3, "amount": 7.5}]
})";

TEST(SaleSteps, AFileBecomesTheSessionCallsInOrder) {
    RecordingDocumentPrinter printer;
    std::ostringstream out;
    EXPECT_TRUE(RunSteps(printer, SaleSteps(ParseSale(kSale)), out));
    EXPECT_THAT(printer.calls,
                ElementsAre("PasarDatosCliente(Jos\xE9 P\xE9rez|V-12345678|Calle 5\r\nCaracas)",
                            "PasarItem(Caf\xE9|125000|2|16)", "PasarItem(Pan|30000|0.5|0)",
                            "SubTotal()", "PasarDescuento(10)", "PasarMontoDescuento(12500)",
                            "CerrarConMedio(1|200000)", "CerrarConMedio(3|75000)"));
    // The person reads UTF-8.
    EXPECT_THAT(out.str(), HasSubstr("item 1: Caf\xC3\xA9, 2 x 12.50 at 16%"));
}

TEST(SaleSteps, WithoutCustomerOrDiscountsOnlyItemsSubtotalAndPayment) {
    RecordingDocumentPrinter printer;
    std::ostringstream out;
    RunSteps(printer,
             SaleSteps(ParseSale(R"({"items": [{"description": "A", "price": 1, "quantity": 1,
                                                "rate": 8}],
                                     "payments": [{"means": 2, "amount": 1.08}]})")),
             out);
    EXPECT_THAT(printer.calls,
                ElementsAre("PasarItem(A|10000|1|8)", "SubTotal()", "CerrarConMedio(2|10800)"));
}

TEST(SaleSteps, TheFirstRefusalStopsTheSaleWithThePrintersWords) {
    for (const bool nakLeavesPfOk : {false, true}) {
        RecordingDocumentPrinter printer;
        printer.refuse = 3;  // the second item
        printer.nakLeavesPfOk = nakLeavesPfOk;
        std::ostringstream out;
        EXPECT_FALSE(RunSteps(printer, SaleSteps(ParseSale(kSale)), out));
        EXPECT_EQ(printer.calls.size(), 3u);
        const std::string report = out.str();
        EXPECT_THAT(report, HasSubstr("REFUSED  item 2: Pan"));
        EXPECT_THAT(report, HasSubstr("refused the command with NAK"));
        EXPECT_THAT(report, HasSubstr("STS1 words; STS2 words"));
        EXPECT_THAT(report, HasSubstr("step 3 of 8"));
        EXPECT_THAT(report, Not(HasSubstr("subtotal")));
    }
}

TEST(SaleSteps, APrinterThatDidNotAnswerIsNotQuotedAsHavingSentZeros) {
    RecordingDocumentPrinter printer;
    std::ostringstream out;
    Steps steps = {{"one step", [&printer](DocumentPrinter&) {
                        printer.outcome_.pfError = session::pfCommError;
                        printer.outcome_.DescripcionError = "pfError de comunicacion";
                    }}};
    EXPECT_FALSE(RunSteps(printer, steps, out));
    EXPECT_THAT(out.str(), HasSubstr("nothing was read"));
    EXPECT_THAT(out.str(), Not(HasSubstr("STS1 words")));
}

TEST(CreditNoteSteps, CustomerWithTheInvoiceThenRefundsThenPayment) {
    RecordingDocumentPrinter printer;
    std::ostringstream out;
    RunSteps(printer, CreditNoteSteps(ParseCreditNote(R"({
        "customer": {"name": "Ana", "rif": "V-1", "address": ["A", "B"]},
        "invoice": {"number": "00001521", "serial": "Z1B3000815", "date": "15-03-2024"},
        "items": [{"description": "Caf\u00e9", "price": 95, "quantity": 1, "rate": 16}],
        "payments": [{"means": 1, "amount": 110.2}]})")),
             out);
    EXPECT_THAT(
        printer.calls,
        ElementsAre("PasarDatosClienteNC(Ana|V-1|A\r\nB|00001521|Z1B3000815|15/3/2024)",
                    "RefundItem(Caf\xE9|950000|1|16)", "CerrarNotaCreditoConMedio(1|1102000)"));
}

TEST(OtherSteps, NonFiscalLinesCloseOnTheLastAndReportsGoThroughReporteDiario) {
    RecordingDocumentPrinter printer;
    std::ostringstream out;
    Steps steps = NonFiscalSteps({"uno", "dos", "tres"});
    steps.push_back(ReportStep('X'));
    steps.push_back(ReportStep('Z'));
    RunSteps(printer, steps, out);
    EXPECT_THAT(printer.calls, ElementsAre("PrintNoFiscal(uno|false)", "PrintNoFiscal(dos|false)",
                                           "PrintNoFiscal(tres|true)", "ReporteDiario(0|X)",
                                           "ReporteDiario(0|Z)"));
}

}  // namespace
}  // namespace corvid::tool
