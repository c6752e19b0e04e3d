#include <signal.h>
#include <unistd.h>

#include "corvid/stop_signal.h"

namespace corvid::tool {
namespace {

sigset_t StopSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    return signals;
}

}  // namespace

void PrepareStopSignal() {
    const sigset_t signals = StopSignals();
    // Threads inherit the mask: the signals stay pending until sigwait takes them.
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

void WaitForStopSignal() {
    const sigset_t signals = StopSignals();
    int signal = 0;
    sigwait(&signals, &signal);
}

void RequestStop() { kill(getpid(), SIGTERM); }

}  // namespace corvid::tool
