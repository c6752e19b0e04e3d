// A process-wide value a host or a test may replace (the default printer, the window
// factory, the report sink): read and replaced under one lock, so that a replacement made
// on one thread is seen whole on another.
#pragma once

#include <mutex>
#include <utility>

namespace corvid::preview {

template <typename T>
class Replaceable {
  public:
    T Get() const {
        std::lock_guard lock(guard_);
        return value_;
    }
    // Returns the previous value.
    T Replace(T value) {
        std::lock_guard lock(guard_);
        return std::exchange(value_, std::move(value));
    }

  private:
    mutable std::mutex guard_;
    T value_{};
};

}  // namespace corvid::preview
