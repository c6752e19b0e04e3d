// The COM reference count every object of the server keeps; starts at one for its creator.
#pragma once

#include <windows.h>

namespace corvid::registration {

class ReferenceCount {
  public:
    ULONG Increment() { return static_cast<ULONG>(InterlockedIncrement(&count_)); }
    // Deletes `owner` when the last reference goes.
    template <class Owner>
    ULONG Decrement(Owner* owner) {
        const LONG left = InterlockedDecrement(&count_);
        if (left == 0) delete owner;
        return static_cast<ULONG>(left);
    }

  private:
    LONG count_ = 1;
};

}  // namespace corvid::registration
