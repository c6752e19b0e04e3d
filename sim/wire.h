// The bytes of the printer's serial protocol as the printer side sees them, and the
// framing of the printer's own replies (STX, text, end byte, XOR check byte).
#pragma once

#include <string>
#include <string_view>

namespace corvid::sim {

inline constexpr char kStx = 2;
inline constexpr char kEtx = 3;
inline constexpr char kEot = 4;
inline constexpr char kEnq = 5;
inline constexpr char kAck = 6;
inline constexpr char kNak = 21;
inline constexpr char kEtb = 23;

// XOR of every byte of `bytes` (0 for none).
unsigned char XorOf(std::string_view bytes);

// STX & text & end & check, where check is the XOR of the text and the end byte.
std::string FrameReply(std::string_view text, char end);

// Control bytes (below 33) as [STX], [ETX], ... or [010]; other bytes unchanged.
std::string Readable(std::string_view bytes);

}  // namespace corvid::sim
