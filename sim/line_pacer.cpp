#include "sim/line_pacer.h"

#include <algorithm>

namespace corvid::sim {

LinePacer::Clock::time_point LinePacer::Received(Clock::time_point seen) {
    receiveFree_ = std::max(seen, receiveFree_) + perByte_;
    return receiveFree_;
}

LinePacer::Clock::time_point LinePacer::Sent(Clock::time_point ready) {
    sendFree_ = std::max(ready, sendFree_) + perByte_;
    return sendFree_;
}

}  // namespace corvid::sim
