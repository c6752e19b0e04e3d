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

constexpr int kItems = 100;
// 8 data bits, even parity, one stop bit and the start bit.
constexpr double kSecondsPerByte = 11.0 / 9600.0;

}  // namespace

void MeasurePacedSale(std::int16_t port) {
    sim::SimulatorConfig config;
    config.paced = true;
    sim::Simulator simulator(config);
    simulator.Start();
    serial::SetPortDevice(port, simulator.SlavePath());
    double elapsed = 0;
    bool accepted = true;
    {
        session::PrinterFiscal printer;
        printer.Abrir(port);
        printer.Setf21(0);
        // Amount formats and rates are learnt before the clock starts.
        printer.IndiceTasa(16);
        simulator.transcript().Clear();
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < kItems && accepted; ++i) {
            accepted = printer.PasarItem("ARTICULO " + std::to_string(i + 1),
                                         automation::Currency::FromDouble(1.25), 1, 16) == 0;
        }
        accepted = accepted && !printer.SubTotal();
        accepted =
            accepted && printer.CerrarComprobante(automation::Currency::FromDouble(200)) == 0;
        elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        printer.Cerrar();
    }
    std::size_t bytes = 0;
    for (const auto& entry : simulator.transcript().Entries()) bytes += entry.bytes.size();
    simulator.Stop();
    serial::SetPortDevice(port, "");
    const double wire = bytes * kSecondsPerByte;
    std::printf(
        "(d) a %d-item sale at 9600 baud 8E1 (%s): %.2f s for %zu bytes on the wire, whose "
        "wire time is %.2f s (%+.1f%%)\n",
        kItems, accepted ? "accepted" : "REFUSED", elapsed, bytes, wire,
        100 * (elapsed - wire) / wire);
}

}  // namespace corvid::bench
