// Measures what Execute("w") costs the host, against the simulated printer on a
// pseudo-terminal:
//  (a) exchanges per second when the printer answers at once, next to the time the same
//      bytes take on a 9600-baud line with even parity;
//  (b) the processor time of the host's thread while the printer holds each reply: the
//      simulator's thread reads the host thread's clock as the host's byte and the held
//      reply cross the line; and over the whole run, exchanges included;
//  (c) how soon the host reacts to a reply: from the printer writing a status reply to the
//      host's command block, and from the printer's final ACK to Execute returning.
#include <pthread.h>
#include <sys/resource.h>
#include <time.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <mutex>
#include <utility>
#include <vector>

#include "bench/paced_sale.h"
#include "bench/percentile.h"
#include "serial/port_devices.h"
#include "session/printer_fiscal.h"
#include "sim/simulator.h"
#include "support/memory_settings_source.h"

namespace {

using Clock = std::chrono::steady_clock;
using corvid::sim::TranscriptEntry;
using Direction = TranscriptEntry::Direction;
using corvid::bench::Percentile;

constexpr std::int16_t kPort = 9;
// Bytes on the wire of one exchange of "w": ENQ, status reply (5), block (4), ACK.
constexpr int kExchangeBytes = 1 + 5 + 4 + 1;
using corvid::bench::kSecondsPerByte;

double Seconds(Clock::duration d) { return std::chrono::duration<double>(d).count(); }

double ThreadCpuSeconds() {
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec +
           (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// The host thread's processor time at every unit that crosses the line, taken on the
// simulator's thread.
class HostCpuAtEachUnit {
  public:
    struct Mark {
        Direction direction;
        Clock::time_point at;
        double cpu;
    };

    explicit HostCpuAtEachUnit(pthread_t host) { pthread_getcpuclockid(host, &clock_); }

    void Add(const TranscriptEntry& entry) {
        timespec now{};
        clock_gettime(clock_, &now);
        std::lock_guard lock(mutex_);
        marks_.push_back({entry.direction, entry.at, now.tv_sec + now.tv_nsec / 1e9});
    }
    std::vector<Mark> Take() {
        std::lock_guard lock(mutex_);
        return std::exchange(marks_, {});
    }

  private:
    clockid_t clock_{};
    std::mutex mutex_;
    std::vector<Mark> marks_;
};

void PrintPercentiles(const char* what, std::vector<double> gaps) {
    if (gaps.empty()) {
        std::printf("    %s: no samples\n", what);
        return;
    }
    std::sort(gaps.begin(), gaps.end());
    std::printf("    %s: p50 %.3f ms, p99 %.3f ms (%zu replies)\n", what,
                Percentile(gaps, 0.50) * 1e3, Percentile(gaps, 0.99) * 1e3, gaps.size());
}

void MeasureThroughput(corvid::session::PrinterFiscal& printer) {
    constexpr int kExchanges = 500;
    const auto start = Clock::now();
    for (int i = 0; i < kExchanges; ++i) printer.Execute("w");
    const double perExchange = Seconds(Clock::now() - start) / kExchanges;
    std::printf(
        "(a) %d exchanges: %.0f exchanges/s, %.3f ms each (ENQ, status, block, ACK);\n"
        "    the same %d bytes take %.2f ms on a 9600-baud 8E1 line (%.1f%% of it)\n",
        kExchanges, 1 / perExchange, perExchange * 1e3, kExchangeBytes,
        kExchangeBytes * kSecondsPerByte * 1e3,
        100 * perExchange / (kExchangeBytes * kSecondsPerByte));
}

void MeasureHeldReplies(corvid::sim::Simulator& simulator, corvid::session::PrinterFiscal& printer,
                        HostCpuAtEachUnit& marks) {
    constexpr int kExchanges = 25;
    constexpr int kHeldMs = 200;
    simulator.SetReplyDelay(std::chrono::milliseconds(kHeldMs));
    marks.Take();
    const double cpu0 = ThreadCpuSeconds();
    const auto start = Clock::now();
    for (int i = 0; i < kExchanges; ++i) printer.Execute("w");
    const double wall = Seconds(Clock::now() - start);
    const double cpu = ThreadCpuSeconds() - cpu0;
    simulator.SetReplyDelay(std::chrono::milliseconds(0));

    double held = 0, heldCpu = 0;
    const auto all = marks.Take();
    for (std::size_t i = 1; i < all.size(); ++i) {
        if (all[i - 1].direction == Direction::HostToPrinter &&
            all[i].direction == Direction::PrinterToHost) {
            held += Seconds(all[i].at - all[i - 1].at);
            heldCpu += all[i].cpu - all[i - 1].cpu;
        }
    }
    std::printf("(b) replies held %d ms (%d exchanges, %.2f s held of %.2f s):\n", kHeldMs,
                kExchanges, held, wall);
    std::printf("    while held: host thread %.1f ms = %.3f%%\n", heldCpu * 1e3,
                100 * heldCpu / held);
    std::printf("    whole run:  host thread %.1f ms = %.3f%%\n", cpu * 1e3, 100 * cpu / wall);
}

void MeasureReaction(corvid::sim::Simulator& simulator, corvid::session::PrinterFiscal& printer) {
    constexpr int kExchanges = 500;
    constexpr int kHeldMs = 10;
    simulator.SetReplyDelay(std::chrono::milliseconds(kHeldMs));
    std::vector<double> toBlock, toReturn;
    for (int i = 0; i < kExchanges; ++i) {
        simulator.transcript().Clear();
        printer.Execute("w");
        const auto returned = Clock::now();
        const auto entries = simulator.transcript().Entries();
        for (std::size_t k = 1; k < entries.size(); ++k) {
            if (entries[k - 1].what == TranscriptEntry::What::StatusReply &&
                entries[k].direction == Direction::HostToPrinter) {
                toBlock.push_back(Seconds(entries[k].at - entries[k - 1].at));
            }
        }
        if (!entries.empty() && entries.back().direction == Direction::PrinterToHost) {
            toReturn.push_back(Seconds(returned - entries.back().at));
        }
    }
    simulator.SetReplyDelay(std::chrono::milliseconds(0));
    std::printf("(c) replies held %d ms (%d exchanges), reply written -> host reacts:\n", kHeldMs,
                kExchanges);
    PrintPercentiles("status reply -> command block", std::move(toBlock));
    PrintPercentiles("ACK -> Execute returned", std::move(toReturn));
}

}  // namespace

int main() {
    corvid::host::ScopedSettingsSource settings;  // no ORV.ini or user settings involved
    HostCpuAtEachUnit marks(pthread_self());
    corvid::sim::Simulator simulator;
    simulator.transcript().SetObserver(
        [&marks](const TranscriptEntry& entry) { marks.Add(entry); });
    simulator.Start();
    corvid::serial::SetPortDevice(kPort, simulator.SlavePath());
    std::printf("Linux build: a session on the simulated printer over a pseudo-terminal\n");
    {
        corvid::session::PrinterFiscal printer;
        printer.Abrir(kPort);
        MeasureThroughput(printer);
        MeasureHeldReplies(simulator, printer, marks);
        MeasureReaction(simulator, printer);
        printer.Cerrar();
    }
    simulator.Stop();
    corvid::bench::MeasurePacedSale(kPort + 1);
    return 0;
}
