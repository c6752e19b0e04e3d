// A 100-item sale on a simulated printer that moves bytes at 9600-baud 8E1 speed, timed
// against the wire time of the bytes it exchanged.
#pragma once

#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>

namespace corvid::bench {

inline constexpr int kPacedSaleItems = 100;
// 8 data bits, even parity, one stop bit and the start bit.
inline constexpr double kSecondsPerByte = 11.0 / 9600.0;

struct WireTiming {
    bool accepted = false;
    double elapsed = 0;  // seconds
    std::size_t bytes = 0;
    double Wire() const { return static_cast<double>(bytes) * kSecondsPerByte; }
    double PercentOverWire() const { return 100 * (elapsed - Wire()) / Wire(); }
};

// The sale through a session of this process, on port `port` mapped to the simulator.
WireTiming TimePacedSale(std::int16_t port);
void MeasurePacedSale(std::int16_t port);
// The same sale as a print job's body: the same items, one payment.
nlohmann::json PacedSaleJob();

}  // namespace corvid::bench
