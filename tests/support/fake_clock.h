// A clock for tests: its time only moves when told to, or by SleepMilliseconds, so code
// that waits on the clock runs instantly and deterministically.
#pragma once

#include <cmath>

#include "automation/clock.h"
#include "automation/dates.h"

namespace corvid::automation {

class FakeClock : public Clock {
  public:
    // Starts on 2024-01-15 at 12:00:00.
    FakeClock() : day_(DateSerial(2024, 1, 15).days), seconds_(12 * 3600.0) {}

    float SecondsSinceMidnight() override { return static_cast<float>(seconds_); }
    Date Now() override { return CombineDateTime(Date{day_}, Date{seconds_ / 86400.0}); }
    // Advances the time.
    void SleepMilliseconds(int milliseconds) override {
        slept_milliseconds_ += milliseconds;
        Advance(milliseconds / 1000.0);
    }

    // Sets the time of day, keeping the date.
    void SetSecondsSinceMidnight(double seconds) { seconds_ = seconds; }
    // Sets date and time of day from an automation date.
    void SetNow(Date now) {
        day_ = std::trunc(now.days);
        seconds_ = TimeOfDaySeconds(now);
    }
    // Moves the time forward, rolling over midnight into the next day.
    void Advance(double seconds) {
        seconds_ += seconds;
        while (seconds_ >= 86400.0) {
            seconds_ -= 86400.0;
            day_ += 1;
        }
    }
    long long slept_milliseconds() const { return slept_milliseconds_; }

  private:
    double day_;
    double seconds_;
    long long slept_milliseconds_ = 0;
};

}  // namespace corvid::automation
