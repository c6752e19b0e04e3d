// Sale and credit-note files, and the session calls each document becomes.
#include "jobs/documents.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "automation/dates.h"
#include "jobs/step_runner.h"
#include "jobs/steps.h"

namespace corvid::jobs {
namespace {

using ::testing::HasSubstr;

// Writes down every call; refuses the call numbered `refuse` (from 1) as the session
// reports a NAK: with pfPrinterError, or with pfOk and resultFlag NAK alone.
class RecordingPrinter : public DocumentPrinter {
  public:
    std::vector<std::string> calls;
    std::size_t refuse = 0;
    bool nakLeavesPfOk = false;
    session::ExchangeOutcome last;

    void PasarDatosCliente(const std::string& n, const std::string& r,
                           const std::string& d) override {
        Record("PasarDatosCliente", n, r, d);
    }
    void PasarDatosClienteNC(const std::string& n, const std::string& r, const std::string& d,
                             const std::string& f, const std::string& s,
                             automation::Date fecha) override {
        Record("PasarDatosClienteNC", n, r, d, f, s, fecha);
    }
    void PasarItem(const std::string& d, automation::Currency p, double q, double t) override {
        Record("PasarItem", d, p, q, t);
    }
    void RefundItem(const std::string& d, automation::Currency p, double q, double t) override {
        Record("RefundItem", d, p, q, t);
    }
    void SubTotal() override { Record("SubTotal"); }
    void PasarDescuento(double p) override { Record("PasarDescuento", p); }
    void PasarMontoDescuento(automation::Currency m) override { Record("PasarMontoDescuento", m); }
    void CerrarConMedio(int m, automation::Currency a) override { Record("CerrarConMedio", m, a); }
    void CerrarNotaCreditoConMedio(int m, automation::Currency a) override {
        Record("CerrarNotaCreditoConMedio", m, a);
    }
    void PrintNoFiscal(const std::string& t, bool c) override { Record("PrintNoFiscal", t, c); }
    void ReporteDiario(const std::string& r, const std::string& t) override {
        Record("ReporteDiario", r, t);
    }
    void SetHeader(int l, const std::string& t) override { Record("SetHeader", l, t); }
    void SetFooter(int l, const std::string& t) override { Record("SetFooter", l, t); }
    void SetDate(automation::Date d) override { Record("SetDate", d); }
    void SetTime(automation::Date t) override { Record("SetTime", t); }
    const session::ExchangeOutcome& outcome() const override { return last; }
    std::string explainSTS1() const override { return "STS1 words"; }
    std::string explainSTS2() const override { return "STS2 words"; }

  private:
    template <class T>
    static std::string Text(const T& value) {
        std::ostringstream text;
        text << std::boolalpha << value;
        return text.str();
    }
    static std::string Text(automation::Currency amount) { return std::to_string(amount.scaled()); }
    static std::string Text(automation::Date date) {
        const automation::DateParts d = automation::SplitDate(date);
        return std::to_string(d.day) + "/" + std::to_string(d.month) + "/" + std::to_string(d.year);
    }
    template <class... Args>
    void Record(const char* name, const Args&... args) {
        std::string call;
        ((call += (call.empty() ? "" : "|") + Text(args)), ...);
        calls.push_back(name + ("(" + call + ")"));
        last = {};
        last.resultFlag = session::ACK;
        if (calls.size() != refuse) return;
        last.resultFlag = session::NAK;
        last.pfError = nakLeavesPfOk ? session::pfOk : session::pfPrinterError;
        last.DescripcionError = nakLeavesPfOk ? "Ok" : "Se recibi\xF3 NAK";
        last.STS1 = last.STS2 = 0x60;
    }
};

constexpr const char* kSale = R"({
  "customer": {"name": "Jos\u00e9 P\u00e9rez", "rif": "V-12345678",
               "address": ["Calle 5", "Caracas"]},
  "items": [{"description": "Caf\u00e9 \u20ac", "price": 12.5, "quantity": 2, "rate": 16},
            {"description": "Pan", "price": 0.1, "quantity": 0.5, "rate": 0}],
  "discounts": [{"percent": 10}, {"amount": 1.25}],
  "payments": [{"means": 1, "amount": 1234567.89}, {"means": 3, "amount": 7.5}]})";

TEST(DocumentSteps, EachDocumentBecomesTheSessionCallsInOrder) {
    struct Row {
        const char* name;
        Steps steps;
        std::vector<std::string> calls;
    };
    Steps others = NonFiscalSteps({"uno", "dos"});
    for (Step step : {ReportStep('X'), ReportStep('Z'), HeaderStep(2, "H"), FooterStep(3, "F")})
        others.push_back(step);
    const Row rows[] = {
        {"sale",
         SaleSteps(ParseSale(kSale)),
         {"PasarDatosCliente(Jos\xE9 P\xE9rez|V-12345678|Calle 5\r\nCaracas)",
          "PasarItem(Caf\xE9 \x80|125000|2|16)", "PasarItem(Pan|1000|0.5|0)", "SubTotal()",
          "PasarDescuento(10)", "PasarMontoDescuento(12500)", "CerrarConMedio(1|12345678900)",
          "CerrarConMedio(3|75000)"}},
        {"credit note",
         CreditNoteSteps(ParseCreditNote(R"({
            "customer": {"name": "Ana", "rif": "V-1", "address": ["A", "B"]},
            "invoice": {"number": "00001521", "serial": "Z1B3000815", "date": "29-02-2024"},
            "items": [{"description": "Caf\u00e9", "price": 95, "quantity": 1, "rate": 16}],
            "payments": [{"means": 1, "amount": 110.2}]})")),
         {"PasarDatosClienteNC(Ana|V-1|A\r\nB|00001521|Z1B3000815|29/2/2024)",
          "RefundItem(Caf\xE9|950000|1|16)", "CerrarNotaCreditoConMedio(1|1102000)"}},
        {"others",
         others,
         {"PrintNoFiscal(uno|false)", "PrintNoFiscal(dos|true)", "ReporteDiario(0|X)",
          "ReporteDiario(0|Z)", "SetHeader(2|H)", "SetFooter(3|F)"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        RecordingPrinter printer;
        std::ostringstream out;
        EXPECT_TRUE(RunSteps(printer, row.steps, out));
        EXPECT_EQ(printer.calls, row.calls);
    }
    std::ostringstream out;
    RecordingPrinter printer;
    RunSteps(printer, rows[0].steps, out);
    EXPECT_THAT(out.str(), HasSubstr("item 1: Caf\xC3\xA9 \xE2\x82\xAC, 2 x 12.50 at 16%"));
}

TEST(DocumentSteps, TheFirstRefusalStopsTheDocumentWithThePrintersWords) {
    for (const bool nakLeavesPfOk : {false, true}) {
        RecordingPrinter printer;
        printer.refuse = 3;  // the second item
        printer.nakLeavesPfOk = nakLeavesPfOk;
        std::ostringstream out;
        EXPECT_FALSE(RunSteps(printer, SaleSteps(ParseSale(kSale)), out));
        EXPECT_EQ(printer.calls.size(), 3u);
        EXPECT_THAT(out.str(), HasSubstr("REFUSED  item 2: Pan"));
        EXPECT_THAT(out.str(), HasSubstr("refused the command with NAK"));
        EXPECT_THAT(out.str(), HasSubstr("STS1 words; STS2 words"));
        EXPECT_THAT(out.str(), HasSubstr("step 3 of 8"));
    }
}

TEST(DocumentFiles, AMistakeIsNamedWithItsPlace) {
    const std::string item = R"({"description": "A", "price": 1, "quantity": 1, "rate": 16})";
    const std::string pay = R"("payments": [{"means": 1, "amount": 1}])";
    const std::string sale = R"({"items": [)" + item + ",";  // + a second item
    const std::string note =
        R"({"customer": {"name": "A", "rif": "B"}, "items": [)" + item + "], " + pay + ", ";
    struct Row {
        bool creditNote;
        std::string json, message;
    };
    const Row rows[] = {
        {false, R"({"items": [)", "not valid JSON: parse error at line 1, column 12"},
        {false, "{" + pay + "}", "items: missing"},
        {false,
         sale + R"({"description": "B", "prize": 3, "quantity": 1, "rate": 16}], )" + pay + "}",
         "items[1].prize: unknown field (expected description, price, quantity, rate)"},
        {false,
         sale + R"({"description": "B", "price": 3, "quantity": 0, "rate": 16}], )" + pay + "}",
         "items[1].quantity: expected a number above 0"},
        {false, sale + item + "], " + pay + R"(, "discounts": [{"percent": 5, "amount": 2}]})",
         "discounts[0]: give either percent or amount"},
        {true, note + R"("x": 1})",
         "x: unknown field (expected customer, invoice, items, payments)"},
        {true, R"({"items": [)" + item + "]}", "customer: missing"},
        {true, note + R"("invoice": {"number": "1", "serial": "Z", "date": "31-04-2024"}})",
         "invoice.date: expected a date written dd-mm-yyyy, found \"31-04-2024\""},
    };
    for (const Row& row : rows) {
        std::string error = "(accepted)";
        try {
            row.creditNote ? (void)ParseCreditNote(row.json) : (void)ParseSale(row.json);
        } catch (const DocumentError& e) {
            error = e.what();
        }
        EXPECT_THAT(error, ::testing::StartsWith(row.message)) << row.json;
    }
}

}  // namespace
}  // namespace corvid::jobs
