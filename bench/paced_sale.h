// A 100-item sale on a simulated printer that moves bytes at 9600-baud 8E1 speed, timed
// against the wire time of the bytes it exchanged.
#pragma once

#include <cstdint>

namespace corvid::bench {

void MeasurePacedSale(std::int16_t port);

}  // namespace corvid::bench
