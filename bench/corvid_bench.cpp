// Measures, against the simulated printer on a pseudo-terminal:
//  (a) exchanges per second when the printer answers at once, as the library's cost per
//      exchange next to the time the same bytes take on a 9600-baud line with even parity;
//  (b) the processor time the host spends while the printer holds its reply back;
//  (c) the delay from the printer's reply to Execute returning.
// The simulator runs on a thread of its own, so (b) reads the host thread's own usage.
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "bench/paced_sale.h"
#include "serial/port_devices.h"
#include "session/printer_fiscal.h"
#include "sim/simulator.h"
#include "support/memory_settings_source.h"

namespace {

using Clock = std::chrono::steady_clock;
using corvid::sim::TranscriptEntry;

constexpr std::int16_t kPort = 9;
// Bytes on the wire of one exchange of "w": ENQ, status reply (5), block (4), ACK.
constexpr int kExchangeBytes = 1 + 5 + 4 + 1;
// 9600 baud, 8 data bits, even parity, 1 stop bit and the start bit: 11 bits a byte.
constexpr double kSecondsPerByte = 11.0 / 9600.0;

double ThreadCpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec +
           (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

double Seconds(Clock::duration d) { return std::chrono::duration<double>(d).count(); }

void MeasureThroughput(corvid::session::PrinterFiscal& printer) {
    constexpr int kExchanges = 500;
    const auto start = Clock::now();
    for (int i = 0; i < kExchanges; ++i) printer.Execute("w");
    const double perExchange = Seconds(Clock::now() - start) / kExchanges;
    std::printf(
        "(a) %d exchanges: %.0f exchanges/s, %.3f ms each over the pseudo-terminal;\n"
        "    the same %d bytes take %.2f ms on a 9600-baud 8E1 line (%.1f%% of it)\n",
        kExchanges, 1 / perExchange, perExchange * 1e3, kExchangeBytes,
        kExchangeBytes * kSecondsPerByte * 1e3,
        100 * perExchange / (kExchangeBytes * kSecondsPerByte));
}

void MeasureHeldReply(corvid::sim::Simulator& simulator, corvid::session::PrinterFiscal& printer) {
    constexpr int kExchanges = 10;
    simulator.SetReplyDelay(std::chrono::milliseconds(200));
    std::vector<double> delays;
    double cpu = 0, wall = 0;
    for (int i = 0; i < kExchanges; ++i) {
        simulator.transcript().Clear();
        const double cpu0 = ThreadCpuSeconds();
        const auto start = Clock::now();
        printer.Execute("w");
        const auto returned = Clock::now();
        cpu += ThreadCpuSeconds() - cpu0;
        wall += Seconds(returned - start);
        const auto entries = simulator.transcript().Entries();
        for (auto it = entries.rbegin(); it != entries.rend(); ++it) {
            if (it->direction == TranscriptEntry::Direction::PrinterToHost) {
                delays.push_back(Seconds(returned - it->at));
                break;
            }
        }
    }
    simulator.SetReplyDelay(std::chrono::milliseconds(0));
    std::sort(delays.begin(), delays.end());
    std::printf(
        "(b) replies held 200 ms (%d exchanges, %.2f s): host CPU %.1f ms = %.3f%% of "
        "wall time\n",
        kExchanges, wall, cpu * 1e3, 100 * cpu / wall);
    if (!delays.empty()) {
        std::printf("(c) reply written -> Execute returned: median %.3f ms, worst %.3f ms\n",
                    delays[delays.size() / 2] * 1e3, delays.back() * 1e3);
    }
}

}  // namespace

int main() {
    corvid::host::ScopedSettingsSource settings;  // no ORV.ini or user settings involved
    corvid::sim::Simulator simulator;
    simulator.Start();
    corvid::serial::SetPortDevice(kPort, simulator.SlavePath());
    {
        corvid::session::PrinterFiscal printer;
        printer.Abrir(kPort);
        MeasureThroughput(printer);
        MeasureHeldReply(simulator, printer);
        printer.Cerrar();
    }
    simulator.Stop();
    corvid::bench::MeasurePacedSale(kPort + 1);
    return 0;
}
