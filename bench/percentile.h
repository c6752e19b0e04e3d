// Percentiles of a benchmark's samples.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace corvid::bench {

// Nearest-rank percentile of sorted values.
inline double Percentile(const std::vector<double>& sorted, double fraction) {
    const auto rank = static_cast<std::size_t>(fraction * static_cast<double>(sorted.size()) + 0.5);
    return sorted[std::clamp<std::size_t>(rank, 1, sorted.size()) - 1];
}

}  // namespace corvid::bench
