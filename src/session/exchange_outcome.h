// What the last exchange left behind; the host reads and writes these as properties.
#pragma once

#include <cstdint>
#include <string>

#include "session/control_values.h"

namespace corvid::session {

struct ExchangeOutcome {
    // Raw text of the reply the last wait collected.
    std::string result;
    // The control code that ended the last reply (ACK, NAK, ETX or ETB).
    std::int32_t resultFlag = 0;
    std::int32_t pfError = pfOk;
    std::int32_t STS1 = 0;
    std::int32_t STS2 = 0;
    std::string DescripcionError;
};

// pfError as the 16-bit integer the senders return; a value beyond 16 bits (a host may
// write any) raises overflow, error 6.
std::int16_t PfErrorAsInteger(const ExchangeOutcome& outcome);

}  // namespace corvid::session
