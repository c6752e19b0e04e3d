// The service runs until asked to stop: Ctrl-C, or SIGTERM on POSIX (what systemd sends),
// or the console closing on Windows. Waiting blocks; nothing polls.
#pragma once

namespace corvid::tool {

// Call before any thread starts, so that every thread leaves the stop to the waiter.
void PrepareStopSignal();
// Blocks until a stop is asked for.
void WaitForStopSignal();

}  // namespace corvid::tool
