#include "sim/fault_plan.h"

namespace corvid::sim {

bool CountedFault::Take(ReplyKind kind) {
    if (remaining <= 0 || (kinds & kind) == 0) return false;
    if (skip > 0) {
        --skip;
        return false;
    }
    --remaining;
    return true;
}

}  // namespace corvid::sim
