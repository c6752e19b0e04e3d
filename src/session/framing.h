// Command framing: STX, command, ETX and an XOR check byte; and the readable form of
// control bytes that every trace line uses.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvid::session {

// STX & command & ETX & check, where check is the XOR of the command bytes and the ETX.
std::string BuildCommandBlock(std::string_view command);

// XOR of every byte, starting from the first. An empty text has no first byte: error 5.
std::int16_t CalcXOr(std::string_view text);

// Control bytes (codes below 33) as tags: [STX], [ETX], [ENQ]... or [010] for others.
std::string EscapeString(std::string_view text);

}  // namespace corvid::session
