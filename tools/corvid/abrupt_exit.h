// Ending the process at once, from any thread or from a signal or console handler: the
// message goes straight to the standard error device, and the process ends without
// running destructors or flushing streams, so nothing another thread holds can make it
// wait. The system closes every open file and device, the printer's port among them.
#pragma once

namespace corvid::tool {

[[noreturn]] void ExitNow(const char* message, int status);

// Ctrl-C (and, on POSIX, SIGTERM) ends the process at once through ExitNow with status
// 130, whatever the session is waiting for.
void ExitAtOnceOnInterrupt();

}  // namespace corvid::tool
