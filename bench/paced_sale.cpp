#include "bench/paced_sale.h"

#include <chrono>
#include <cstdio>
#include <string>

#include "automation/currency.h"
#include "serial/port_devices.h"
#include "session/printer_fiscal.h"
#include "sim/simulator.h"

namespace corvid::bench {
namespace {

constexpr double kPrice = 1.25;
constexpr int kRate = 16;
constexpr double kPaid = 200;

std::string ItemName(int i) { return "ARTICULO " + std::to_string(i + 1); }

}  // namespace

WireTiming TimePacedSale(std::int16_t port) {
    sim::SimulatorConfig config;
    config.paced = true;
    sim::Simulator simulator(config);
    simulator.Start();
    serial::SetPortDevice(port, simulator.SlavePath());
    WireTiming timing;
    {
        session::PrinterFiscal printer;
        printer.Abrir(port);
        printer.Setf21(0);
        // Amount formats and rates are learnt before the clock starts.
        printer.IndiceTasa(kRate);
        simulator.transcript().Clear();
        const auto start = std::chrono::steady_clock::now();
        bool accepted = true;
        for (int i = 0; i < kPacedSaleItems && accepted; ++i) {
            accepted = printer.PasarItem(ItemName(i), automation::Currency::FromDouble(kPrice), 1,
                                         kRate) == 0;
        }
        accepted = accepted && !printer.SubTotal();
        accepted =
            accepted && printer.CerrarComprobante(automation::Currency::FromDouble(kPaid)) == 0;
        timing.elapsed =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        timing.accepted = accepted;
        printer.Cerrar();
    }
    for (const auto& entry : simulator.transcript().Entries()) timing.bytes += entry.bytes.size();
    simulator.Stop();
    serial::SetPortDevice(port, "");
    return timing;
}

void MeasurePacedSale(std::int16_t port) {
    const WireTiming timing = TimePacedSale(port);
    std::printf(
        "(d) a %d-item sale at 9600 baud 8E1 (%s): %.2f s for %zu bytes on the wire, whose "
        "wire time is %.2f s (%+.1f%%)\n",
        kPacedSaleItems, timing.accepted ? "accepted" : "REFUSED", timing.elapsed, timing.bytes,
        timing.Wire(), timing.PercentOverWire());
}

nlohmann::json PacedSaleJob() {
    nlohmann::json items = nlohmann::json::array();
    for (int i = 0; i < kPacedSaleItems; ++i) {
        items.push_back(
            {{"description", ItemName(i)}, {"price", kPrice}, {"quantity", 1}, {"rate", kRate}});
    }
    return {{"type", "sale"},
            {"document", {{"items", items}, {"payments", {{{"means", 1}, {"amount", kPaid}}}}}}};
}

}  // namespace corvid::bench
