#include <signal.h>
#include <unistd.h>

#include <cstring>

#include "corvid/abrupt_exit.h"
#include "corvid/command_line.h"

namespace corvid::tool {

namespace {

constexpr const char kInterrupted[] = "\ncorvid: interrupted; the port is closed\n";

// Only async-signal-safe calls from here on: write and _exit.
void OnInterrupt(int) { ExitNow(kInterrupted, kExitInterrupted); }

}  // namespace

void ExitNow(const char* message, int status) {
    std::size_t left = std::strlen(message);
    while (left > 0) {
        const ssize_t written = ::write(STDERR_FILENO, message, left);
        if (written <= 0) break;
        message += written;
        left -= static_cast<std::size_t>(written);
    }
    ::_exit(status);
}

void ExitAtOnceOnInterrupt() {
    struct sigaction action {};
    action.sa_handler = OnInterrupt;
    sigemptyset(&action.sa_mask);
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

}  // namespace corvid::tool
