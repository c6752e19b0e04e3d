// The settings a session reads once, when it is created, in their fixed order. Reading
// them also sets the process-wide copies of "TestMode", "IsDebug" and "DebugInmediato".
#pragma once

#include <array>
#include <cstdint>

#include "session/exchange.h"

namespace corvid::session {

struct ProcessState;

struct SessionSettings {
    ExchangeSettings exchange;
    // Read and kept; the exchange uses its own fixed count of attempts.
    std::int16_t retries = 3;
    bool testMode = false;
    // Width of an item description in characters.
    std::int32_t columnasDescripcion = 28;
    // Tax rates "0", "1", ... up to the first missing one; at most seven.
    std::array<double, 8> tasas{};
    std::int16_t numTasas = 0;
};

SessionSettings ReadSessionSettings(ProcessState& process);

}  // namespace corvid::session
