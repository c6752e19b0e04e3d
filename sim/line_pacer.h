// The speed of a real serial line. At 9600 baud with 8 data bits, even parity and one stop
// bit a byte takes 11 bit times, about 1.146 ms. A paced simulator takes the host's bytes in
// no faster than that and sends its replies out no faster either, so that timings measured
// against it include the time the bytes need on the wire. Each direction runs on its own.
#pragma once

#include <chrono>
#include <cstddef>

namespace corvid::sim {

inline constexpr std::chrono::nanoseconds kByteTimeAt9600Baud8E1{11'000'000'000LL / 9600};

class LinePacer {
  public:
    using Clock = std::chrono::steady_clock;

    // A zero time per byte paces nothing.
    explicit LinePacer(std::chrono::nanoseconds perByte = {}) : perByte_(perByte) {}
    bool paced() const { return perByte_.count() > 0; }

    // When a byte the host wrote, seen at `seen`, has come in over the line.
    Clock::time_point Received(Clock::time_point seen);
    // When a byte ready to go at `ready` has gone out over the line.
    Clock::time_point Sent(Clock::time_point ready);

  private:
    std::chrono::nanoseconds perByte_;
    Clock::time_point receiveFree_{};
    Clock::time_point sendFree_{};
};

}  // namespace corvid::sim
