// The service runs until asked to stop: Ctrl-C, or SIGTERM on POSIX (what systemd sends),
// or the console closing or the service manager on Windows. Waiting blocks; nothing polls.
#pragma once

namespace corvid::tool {

// Call before any thread starts, so that every thread leaves the stop to the waiter.
void PrepareStopSignal();
// Blocks until a stop is asked for.
void WaitForStopSignal();
// Asks for the stop from any thread, as a service manager's stop does.
void RequestStop();

}  // namespace corvid::tool
