// The clock every time-out and time stamp reads: seconds since local midnight (as VB's
// Timer, single precision), the local date and time, and a sleep. The process uses the
// system clock unless a caller installs another one (tests install a FakeClock).
#pragma once

#include <memory>
#include <utility>

#include "automation/variant.h"

namespace corvid::automation {

class Clock {
  public:
    virtual ~Clock() = default;
    // Seconds since local midnight, with fractions (VB Timer).
    virtual float SecondsSinceMidnight() = 0;
    // The local date and time as an automation date (VB Now).
    virtual Date Now() = 0;
    virtual void SleepMilliseconds(int milliseconds) = 0;
};

// The platform's clock (local time of the operating system).
std::shared_ptr<Clock> MakeSystemClock();

// The process-wide clock (the system clock unless replaced).
Clock& CurrentClock();
// Replaces the process-wide clock; returns the previous one. Passing null restores the
// system clock.
std::shared_ptr<Clock> ReplaceClock(std::shared_ptr<Clock> clock);

// Installs a clock for the lifetime of a scope and puts the previous one back.
class ScopedClock {
  public:
    explicit ScopedClock(std::shared_ptr<Clock> clock)
        : previous_(ReplaceClock(std::move(clock))) {}
    ~ScopedClock() { ReplaceClock(std::move(previous_)); }
    ScopedClock(const ScopedClock&) = delete;
    ScopedClock& operator=(const ScopedClock&) = delete;

  private:
    std::shared_ptr<Clock> previous_;
};

}  // namespace corvid::automation
