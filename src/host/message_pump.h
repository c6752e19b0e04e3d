// One turn of the host's message loop, taken by every serial read and write so that a
// host window stays alive while the library waits for the printer.
#pragma once

#include <functional>

namespace corvid::host {

// Runs the host's hook when one is set; otherwise the platform's own turn (on Windows,
// dispatch every queued window message; elsewhere nothing).
void YieldToHost();

// Installs a hook that replaces the platform's turn (empty to remove); returns the old one.
// Used by hosts with their own event loop and by tests.
std::function<void()> SetHostYieldHook(std::function<void()> hook);

// The platform's turn; YieldToHost calls it when no hook is set.
void PumpPlatformMessages();

}  // namespace corvid::host
