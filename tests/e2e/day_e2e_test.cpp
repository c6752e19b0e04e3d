// A day on the simulated printer: sales and a credit note, the Z closing, then the
// closure read back from fiscal memory. The summary must add up to the receipts printed.
#include <chrono>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

#include "corvid/tool_run.h"
#include "e2e_fixture.h"

namespace corvid::e2e {
namespace {

using automation::Currency;
using automation::Variant;

// Hundredths of the "1.234,56" amounts the printer prints.
long long Hundredths(const std::string& printed) {
    std::string digits;
    for (char c : printed) {
        if (c >= '0' && c <= '9') digits += c;
    }
    return std::stoll(digits) * (printed.find('-') == std::string::npos ? 1 : -1);
}

// The tax lines of every invoice and credit note on the paper, summed by label
// ("EXENTO", "BI G", "IVA R" ...) and document kind ("FACTURA", "NOTA DE CREDITO").
std::map<std::string, long long> PrintedTotals(const std::string& paper) {
    std::map<std::string, long long> sums;
    std::istringstream lines(paper);
    std::string line, kind;
    while (std::getline(lines, line)) {
        if (line.rfind("FACTURA ", 0) == 0 && line.find("AFECTADA") == std::string::npos) {
            kind = "FACTURA";
        }
        if (line.rfind("NOTA DE CREDITO", 0) == 0) kind = "NOTA DE CREDITO";
        if (line.rfind("NO FISCAL", 0) == 0) kind.clear();
        if (kind.empty()) continue;
        for (const char* label : {"EXENTO", "BI G", "IVA G", "BI R", "IVA R", "BI A", "IVA A"}) {
            if (line.rfind(std::string(label) + " ", 0) == 0) {
                sums[kind + " " + label] += Hundredths(line.substr(line.find_last_of(' ') + 1));
            }
        }
    }
    return sums;
}

long long JsonHundredths(const nlohmann::json& value) {
    return std::llround(value.get<double>() * 100);
}

class DayOnSimulator : public SessionOnSimulator {
  protected:
    void SellAndRefund(session::PrinterFiscal& s) {
        EXPECT_EQ(s.IniciarFactura("JUAN PEREZ", "V-12345678", ""), 0);
        EXPECT_EQ(s.PasarItem("HARINA", Currency::FromDouble(38.5), 2, 16), 0);
        EXPECT_EQ(s.PasarItem("LECHE", Currency::FromDouble(120), 1, 8), 0);
        EXPECT_EQ(s.PasarItem("ARROZ", Currency::FromDouble(42), 1.5, 0), 0);
        EXPECT_EQ(s.CerrarComprobante(Currency::FromDouble(400)), 0);
        EXPECT_EQ(s.IniciarFactura("ANA GOMEZ", "V-2345678", ""), 0);
        EXPECT_EQ(s.PasarItem("CAFE", Currency::FromDouble(95), 3, 16), 0);
        EXPECT_EQ(s.CerrarConMedio(2, Currency::FromDouble(400)), 0);
        EXPECT_EQ(s.PasarDatosClienteNC("JUAN PEREZ", "V-12345678", "", "00001521", "Z1B3000815",
                                        Variant(automation::DateSerial(2024, 5, 17))),
                  0);
        EXPECT_EQ(s.RefundItem("LECHE", Currency::FromDouble(120), 1, 8), 0);
        EXPECT_EQ(s.CerrarNotaCreditoConMedio(1, Currency::FromDouble(129.6)), 0);
    }

    // Runs the tool on the simulator's device; its standard output.
    std::string Tool(std::vector<std::string> args) {
        args.insert(args.begin(), {"--port", simulator_->SlavePath()});
        std::ostringstream out, err;
        EXPECT_EQ(tool::RunCommandLine(args, out, err), 0) << err.str() << out.str();
        return out.str();
    }
};

TEST_F(DayOnSimulator, TheClosingSummaryAddsUpToTheReceiptsAndStaysInFiscalMemory) {
    session::PrinterFiscal& s = Prepared();
    SellAndRefund(s);
    const std::map<std::string, long long> printed = PrintedTotals(simulator_->PaperText());
    ASSERT_GT(printed.at("FACTURA BI G"), 0);
    ASSERT_GT(printed.at("NOTA DE CREDITO BI R"), 0);
    session_.reset();  // the tool opens the port itself

    const auto summary = nlohmann::json::parse(Tool({"--json", "report", "z"}))["Summary"];
    const std::pair<const char*, const char*> byRate[] = {
        {"EXENTO", "exento"},     {"BI G", "baseGeneral"},  {"IVA G", "ivaGeneral"},
        {"BI R", "baseReducida"}, {"IVA R", "ivaReducida"}, {"BI A", "baseAdicional"},
        {"IVA A", "ivaAdicional"}};
    for (const auto& [label, name] : byRate) {
        const auto sum = [&](const std::string& kind) {
            const auto found = printed.find(kind + " " + label);
            return found == printed.end() ? 0 : found->second;
        };
        EXPECT_EQ(JsonHundredths(summary["ventas"][name]), sum("FACTURA")) << label;
        EXPECT_EQ(JsonHundredths(summary["notasCredito"][name]), sum("NOTA DE CREDITO")) << label;
    }
    EXPECT_EQ(summary["numeroUltimaFactura"], 1522);

    // The closure just made, from fiscal memory through the session and the tool.
    const int closure = summary["numeroUltimoZ"].get<int>();
    session::PrinterFiscal& again = Open();
    const auto closures = again.reportesZMF(closure - 1, std::int32_t{closure});
    ASSERT_EQ(closures.size(), 2u);
    EXPECT_EQ(closures[1]->numeroCierre, closure);
    EXPECT_EQ(closures[1]->baseVG.scaled() / 100, printed.at("FACTURA BI G"));
    EXPECT_EQ(closures[1]->baseNCIR.scaled() / 100, printed.at("NOTA DE CREDITO BI R"));
    EXPECT_EQ(again.loadReporteZMF(std::int32_t{closure})->impuestoVG.scaled() / 100,
              printed.at("FACTURA IVA G"));
    session_.reset();
    const auto memory = nlohmann::json::parse(
        Tool({"--json", "memory", std::to_string(closure), std::to_string(closure)}))["Closures"];
    ASSERT_EQ(memory.size(), 1u);
    EXPECT_EQ(JsonHundredths(memory[0]["baseVG"]), printed.at("FACTURA BI G"));
}

// The waits for a reply end with its arrival: they add no slices of their own.
TEST_F(SessionOnSimulator, AReplyIsSeenPromptlyAfterItArrives) {
    session::PrinterFiscal& s = Open();
    simulator_->SetReplyDelay(std::chrono::milliseconds(200));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(s.Execute("S1"), 0);
    // Two delayed replies, the status and the data.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(400 + 60));
}

}  // namespace
}  // namespace corvid::e2e
