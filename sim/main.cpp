// corvid-sim: serves a simulated fiscal printer on a pseudo-terminal until SIGINT/SIGTERM.
#include <signal.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "corvid_version.h"
#include "sim/options.h"
#include "sim/simulator.h"

int main(int argc, char** argv) {
    using namespace corvid::sim;
    Options options;
    try {
        options = ParseOptions(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "corvid-sim: %s\n%s", error.what(), Usage().c_str());
        return 2;
    }
    if (options.help) {
        std::fputs(Usage().c_str(), stdout);
        return 0;
    }
    if (options.version) {
        std::puts("corvid-sim " CORVID_VERSION);
        return 0;
    }

    // Block the stop signals before any thread starts, then wait for them here.
    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGINT);
    sigaddset(&stopSignals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);

    Simulator simulator(options.config);
    if (options.printTranscript) {
        simulator.transcript().SetObserver([&simulator](const TranscriptEntry& entry) {
            std::printf("%s\n", FormatEntry(entry, simulator.startTime()).c_str());
            std::fflush(stdout);
        });
    }
    try {
        simulator.Start();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "corvid-sim: %s\n", error.what());
        return 1;
    }
    std::printf("%s\n", simulator.SlavePath().c_str());
    std::fflush(stdout);

    int signal = 0;
    sigwait(&stopSignals, &signal);
    simulator.Stop();
    return 0;
}
