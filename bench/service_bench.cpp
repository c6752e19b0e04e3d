// corvid-service-bench: what the print service adds to printing, with `corvid serve` run as
// a process of its own on the simulated printer (a pseudo-terminal) and its journal on disk:
//  (e) from a job's 202 reply to the job's first byte on the wire, and the post itself;
//  (f) the paced 100-item sale (9600 baud) through the service against its wire time, next
//      to the same sale from a session of this process;
//  (g) jobs per second with 8 clients posting at once to a printer that answers at once.
// A measurement, not a test: run it with `make bench`.
#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bench/job_ends.h"
#include "bench/paced_sale.h"
#include "bench/percentile.h"
#include "print_service/service_harness.h"
#include "sim/simulator.h"
#include "support/memory_settings_source.h"

namespace {

namespace bench = corvid::bench;
namespace e2e = corvid::e2e;
namespace sim = corvid::sim;
using Clock = std::chrono::steady_clock;
using corvid::tool::ServiceTarget;

constexpr int kLatencyJobs = 200;
constexpr int kClients = 8;
constexpr int kJobsPerClient = 25;
constexpr auto kJobLimit = std::chrono::seconds(60);
constexpr std::int16_t kSessionPort = 10;

double Seconds(Clock::duration d) { return std::chrono::duration<double>(d).count(); }

std::int64_t PostAccepted(const ServiceTarget& service, const std::string& key,
                          const nlohmann::json& job) {
    const e2e::Reply reply = e2e::Post(service, key, job);
    if (reply.status != 202) {
        throw std::runtime_error("the service answered " + std::to_string(reply.status) + " to " +
                                 key + ": " + reply.body.dump());
    }
    return reply.body.at("id").get<std::int64_t>();
}

std::string AwaitState(bench::JobEnds& ends, std::int64_t id) {
    const auto end = ends.Await({id}, kJobLimit);
    return end.empty() ? "unfinished" : end.at(id).state;
}

// The service opens its session and learns the printer before the clock starts.
void WarmUp(bench::JobEnds& ends, const ServiceTarget& service, const std::string& key) {
    const nlohmann::json job = {{"type", "nonfiscal"}, {"document", {{"lines", {"warm-up"}}}}};
    const std::string state = AwaitState(ends, PostAccepted(service, key, job));
    if (state != "done") throw std::runtime_error("the warm-up job ended " + state);
}

void PrintMs(const char* what, std::vector<double> samples) {
    std::sort(samples.begin(), samples.end());
    std::printf("    %s: p50 %.2f ms, p99 %.2f ms (min %.2f, max %.2f)\n", what,
                bench::Percentile(samples, 0.50) * 1e3, bench::Percentile(samples, 0.99) * 1e3,
                samples.front() * 1e3, samples.back() * 1e3);
}

std::optional<Clock::time_point> FirstHostUnit(const sim::Simulator& simulator) {
    for (const sim::TranscriptEntry& entry : simulator.transcript().Entries()) {
        if (entry.direction == sim::TranscriptEntry::Direction::HostToPrinter) return entry.at;
    }
    return std::nullopt;
}

void MeasureAcceptToWire(sim::Simulator& simulator, const ServiceTarget& service) {
    bench::JobEnds ends(service);
    WarmUp(ends, service, "warm-up-latency");
    std::vector<double> posts, toWire, postToWire;
    int done = 0;
    for (int i = 0; i < kLatencyJobs; ++i) {
        simulator.transcript().Clear();
        const auto sent = Clock::now();
        const std::int64_t id =
            PostAccepted(service, "latency-" + std::to_string(i), e2e::SampleSaleJob());
        const auto accepted = Clock::now();
        done += AwaitState(ends, id) == "done";
        const std::optional<Clock::time_point> first = FirstHostUnit(simulator);
        if (!first) throw std::runtime_error("a job sent nothing to the printer");
        posts.push_back(Seconds(accepted - sent));
        toWire.push_back(Seconds(*first - accepted));
        postToWire.push_back(Seconds(*first - sent));
    }
    std::printf("(e) %d sample sales one after another (%d done), printer answering at once:\n",
                kLatencyJobs, done);
    PrintMs("post -> 202 reply read", posts);
    PrintMs("post -> first byte on the wire", postToWire);
    // Below zero when the printer hears of the job before the client reads its 202.
    PrintMs("202 reply read -> first byte on the wire", toWire);
}

void MeasureThroughput(const ServiceTarget& service) {
    bench::JobEnds ends(service);
    WarmUp(ends, service, "warm-up-throughput");
    std::vector<std::vector<std::int64_t>> ids(kClients);
    const auto start = Clock::now();
    {
        std::vector<std::jthread> clients;
        for (int c = 0; c < kClients; ++c) {
            clients.emplace_back([&service, &ids, c] {
                for (int j = 0; j < kJobsPerClient; ++j) {
                    const std::string key = "client-" + std::to_string(c) + "-" + std::to_string(j);
                    ids[c].push_back(PostAccepted(service, key, e2e::SampleSaleJob()));
                }
            });
        }
    }
    std::set<std::int64_t> all;
    for (const auto& posted : ids) all.insert(posted.begin(), posted.end());
    const auto result = ends.Await(all, std::chrono::minutes(5));
    Clock::time_point last = start;
    std::set<std::int64_t> numbers;
    int done = 0;
    for (const auto& [id, end] : result) {
        last = std::max(last, end.seen);
        done += end.state == "done";
        if (end.state == "done" && end.documentNumber) numbers.insert(*end.documentNumber);
    }
    const double elapsed = Seconds(last - start);
    std::printf(
        "(g) %d clients posting %d sample sales each at once, printer answering at once:\n"
        "    %d of %zu done (%zu invoice numbers) in %.2f s: %.1f jobs/s\n",
        kClients, kJobsPerClient, done, all.size(), numbers.size(), elapsed, done / elapsed);
}

void PrintWireTiming(const char* who, const bench::WireTiming& timing) {
    std::printf("    %s (%s): %.2f s for %zu bytes, whose wire time is %.2f s (%+.1f%%)\n", who,
                timing.accepted ? "accepted" : "NOT DONE", timing.elapsed, timing.bytes,
                timing.Wire(), timing.PercentOverWire());
}

void MeasurePacedSale(const std::filesystem::path& folder) {
    const bench::WireTiming alone = bench::TimePacedSale(kSessionPort);
    sim::SimulatorConfig config;
    config.paced = true;
    sim::Simulator simulator(config);
    simulator.Start();
    e2e::ServiceProcess process(simulator.SlavePath(), folder / "paced");
    process.Start();
    bench::JobEnds ends(process.target());
    WarmUp(ends, process.target(), "warm-up-paced");
    simulator.transcript().Clear();
    const auto start = Clock::now();
    const std::int64_t id = PostAccepted(process.target(), "paced-sale", bench::PacedSaleJob());
    bench::WireTiming served;
    served.accepted = AwaitState(ends, id) == "done";
    served.elapsed = Seconds(Clock::now() - start);
    for (const auto& entry : simulator.transcript().Entries()) served.bytes += entry.bytes.size();
    std::printf("(f) a %d-item sale at 9600 baud 8E1, from the post to the job's end event:\n",
                bench::kPacedSaleItems);
    PrintWireTiming("through the service", served);
    PrintWireTiming("a session alone    ", alone);
    std::printf("    the service takes %+.2f s (%+.1f%%) over the session alone\n",
                served.elapsed - alone.elapsed,
                100 * (served.elapsed - alone.elapsed) / alone.elapsed);
}

const char* Medium(const std::filesystem::path& folder) {
    struct statfs about {};
    if (statfs(folder.c_str(), &about) != 0) return "file system unknown";
    return about.f_type == TMPFS_MAGIC ? "tmpfs, in memory" : "on disk, not tmpfs";
}

}  // namespace

int main(int argc, char** argv) {
    corvid::host::ScopedSettingsSource settings;  // no ORV.ini or user settings involved
    const std::filesystem::path folder = argc > 1 ? argv[1] : CORVID_BENCH_DATA;
    try {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        std::printf(
            "Print service: corvid serve as a process on the simulated printer, journal "
            "in %s (%s)\n",
            folder.c_str(), Medium(folder));
        std::fflush(stdout);
        {
            sim::Simulator simulator;
            simulator.Start();
            e2e::ServiceProcess process(simulator.SlavePath(), folder / "fast");
            process.Start();
            MeasureAcceptToWire(simulator, process.target());
            std::fflush(stdout);
            MeasureThroughput(process.target());
            std::fflush(stdout);
        }
        MeasurePacedSale(folder);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "corvid-service-bench: %s\n", error.what());
        return 1;
    }
    return 0;
}
