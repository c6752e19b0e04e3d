// The line settings text ("baud=9600 parity=E data=8 stop=1", the form BuildCommDCB
// takes) parsed into values a backend can apply.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvid::serial {

enum class Parity { kNone, kOdd, kEven, kMark, kSpace };
enum class StopBits { kOne, kOneAndHalf, kTwo };

// Keys left out of the text keep the device's present value (nullopt here).
struct LineSettings {
    std::optional<std::uint32_t> baud;
    std::optional<Parity> parity;
    std::optional<int> data_bits;
    std::optional<StopBits> stop_bits;
    std::optional<bool> xon_xoff;
    std::optional<bool> cts_flow;
};

// Keys are case-insensitive and separated by blanks; "to", "dtr", "rts", "odsr" and "idsr"
// are accepted and ignored. Any unknown key or bad value makes the whole text invalid.
std::optional<LineSettings> ParseLineSettings(std::string_view text);

}  // namespace corvid::serial
