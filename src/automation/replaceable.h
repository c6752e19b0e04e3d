// A process-wide value a host or a test may replace (the clock, the locale, the settings
// source, the user prompts, the default printer, the preview window's factory and dialogs,
// the report sink): read and replaced under one lock, so that a replacement made on one
// thread is seen whole on another. A value that costs something to make (a platform object)
// may be made on first use instead of at start-up.
#pragma once

#include <functional>
#include <mutex>
#include <utility>

namespace corvid::automation {

template <typename T>
class Replaceable {
  public:
    Replaceable() = default;
    // `initial` makes the value the first time it is read or replaced.
    explicit Replaceable(std::function<T()> initial) : initial_(std::move(initial)) {}

    T Get() const {
        std::lock_guard lock(guard_);
        return Made();
    }
    // Returns the previous value.
    T Replace(T value) {
        std::lock_guard lock(guard_);
        Made();
        return std::exchange(value_, std::move(value));
    }

  private:
    T& Made() const {
        if (initial_) value_ = std::exchange(initial_, nullptr)();
        return value_;
    }

    mutable std::mutex guard_;
    mutable std::function<T()> initial_;
    mutable T value_{};
};

}  // namespace corvid::automation
