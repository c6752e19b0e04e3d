// Pointers an early-bound caller hands to a member: a null one raises E_POINTER.
#pragma once

#include <windows.h>

#include "automation/vb_error.h"

namespace corvid::registration {

template <class T>
T* Checked(T* pointer) {
    if (pointer == nullptr) {
        throw automation::VbError(static_cast<std::int32_t>(E_POINTER), {}, "Invalid pointer");
    }
    return pointer;
}

}  // namespace corvid::registration
