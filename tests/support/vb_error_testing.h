// The run-time error number an action raises, or 0 when it raises none.
#pragma once

#include "automation/vb_error.h"

namespace corvid::test_support {

inline int ErrorNumberOf(auto&& action) {
    try {
        action();
    } catch (const automation::VbError& error) {
        return error.number();
    }
    return 0;
}

}  // namespace corvid::test_support
