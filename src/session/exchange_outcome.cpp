#include "session/exchange_outcome.h"

#include <limits>

#include "automation/vb_error.h"

namespace corvid::session {

std::int16_t PfErrorAsInteger(const ExchangeOutcome& outcome) {
    if (outcome.pfError < std::numeric_limits<std::int16_t>::min() ||
        outcome.pfError > std::numeric_limits<std::int16_t>::max()) {
        throw automation::VbError::Standard(automation::vb_errors::kOverflow);
    }
    return static_cast<std::int16_t>(outcome.pfError);
}

}  // namespace corvid::session
