// A day on the simulated printer: sales and a credit note, the Z closing through the tool,
// then the closure read back from fiscal memory. The summary the host reads must be the day the
// printer added up (that its paper adds up to the same is the simulator's own test).
#include <chrono>
#include <nlohmann/json.hpp>
#include <sstream>

#include "corvid/tool_run.h"
#include "e2e_fixture.h"

namespace corvid::e2e {
namespace {

using automation::Currency;
using automation::Variant;

long long JsonHundredths(const nlohmann::json& value) {
    return std::llround(value.get<double>() * 100);
}

// Runs the tool on the simulator's device; its standard output.
std::string Tool(const std::string& device, std::vector<std::string> args) {
    args.insert(args.begin(), {"--port", device});
    std::ostringstream out, err;
    EXPECT_EQ(tool::RunCommandLine(args, out, err), 0) << err.str() << out.str();
    return out.str();
}

TEST_F(SessionOnSimulator, TheClosingSummaryIsTheDaysTotalsAndStaysInFiscalMemory) {
    session::PrinterFiscal& s = Prepared();
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
    sim::DayTotals day;
    simulator_->ChangeState([&](sim::FiscalState& state) { day = state.day; });
    ASSERT_GT(day.sales.bases[1], 0);
    ASSERT_GT(day.creditNotes.bases[2], 0);
    session_.reset();  // the tool opens the port itself

    const auto summary =
        nlohmann::json::parse(Tool(simulator_->SlavePath(), {"--json", "report", "z"}))["Summary"];
    // By rate slot: exempt, general, reduced, additional.
    const std::pair<const char*, const char*> names[] = {{"exento", nullptr},
                                                         {"baseGeneral", "ivaGeneral"},
                                                         {"baseReducida", "ivaReducida"},
                                                         {"baseAdicional", "ivaAdicional"}};
    for (std::size_t slot = 0; slot < 4; ++slot) {
        const auto [base, tax] = names[slot];
        for (const auto& [kind, totals] :
             {std::pair{"ventas", day.sales}, std::pair{"notasCredito", day.creditNotes}}) {
            EXPECT_EQ(JsonHundredths(summary[kind][base]), totals.bases[slot]) << kind << base;
            if (tax) {
                EXPECT_EQ(JsonHundredths(summary[kind][tax]), totals.taxes[slot]) << tax;
            }
        }
    }
    EXPECT_EQ(summary["numeroUltimaFactura"], 1522);

    // The closure just made, read back from fiscal memory.
    const int closure = summary["numeroUltimoZ"].get<int>();
    const auto memory = nlohmann::json::parse(
        Tool(simulator_->SlavePath(),
             {"--json", "memory", std::to_string(closure), std::to_string(closure)}))["Closures"];
    ASSERT_EQ(memory.size(), 1u);
    EXPECT_EQ(JsonHundredths(memory[0]["baseVG"]), day.sales.bases[1]);
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
