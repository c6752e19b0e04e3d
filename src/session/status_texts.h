// Words for the printer's two status bytes, as the trace and the host show them.
#pragma once

#include <cstdint>
#include <string>

namespace corvid::session {

// Upper-case hexadecimal without prefix or padding (96 -> "60").
std::string HexText(std::int32_t value);
// The mode text and " (0x..)", e.g. "Modo fiscal: IDLE (0x60)".
std::string ExplainStatus1(std::int32_t sts1);
std::string ExplainStatus2(std::int32_t sts2);

}  // namespace corvid::session
