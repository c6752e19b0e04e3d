// Integer arithmetic as VB does it on Integer and Long values: a result outside the type's
// range raises overflow (error 6) instead of wrapping.
#pragma once

#include <cstdint>
#include <limits>

#include "automation/vb_error.h"

namespace corvid::preview {

template <typename Int>
Int CheckedResult(std::int64_t value) {
    if (value < std::numeric_limits<Int>::min() || value > std::numeric_limits<Int>::max()) {
        throw automation::VbError::Standard(automation::vb_errors::kOverflow);
    }
    return static_cast<Int>(value);
}

inline std::int16_t Add16(std::int16_t a, std::int16_t b) {
    return CheckedResult<std::int16_t>(std::int64_t{a} + b);
}
inline std::int16_t Sub16(std::int16_t a, std::int16_t b) {
    return CheckedResult<std::int16_t>(std::int64_t{a} - b);
}
inline std::int32_t Add32(std::int32_t a, std::int32_t b) {
    return CheckedResult<std::int32_t>(std::int64_t{a} + b);
}
inline std::int32_t Sub32(std::int32_t a, std::int32_t b) {
    return CheckedResult<std::int32_t>(std::int64_t{a} - b);
}

}  // namespace corvid::preview
