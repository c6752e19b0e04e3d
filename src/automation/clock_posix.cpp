#include <time.h>

#include <chrono>
#include <thread>

#include "automation/clock.h"
#include "automation/dates.h"

namespace corvid::automation {
namespace {

struct LocalNow {
    tm fields{};
    long nanoseconds = 0;
};

LocalNow ReadLocalNow() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    LocalNow local;
    localtime_r(&now.tv_sec, &local.fields);
    local.nanoseconds = now.tv_nsec;
    return local;
}

class SystemClock : public Clock {
  public:
    float SecondsSinceMidnight() override {
        const LocalNow now = ReadLocalNow();
        const double seconds = now.fields.tm_hour * 3600.0 + now.fields.tm_min * 60.0 +
                               now.fields.tm_sec + now.nanoseconds / 1e9;
        return static_cast<float>(seconds);
    }

    Date Now() override {
        const tm f = ReadLocalNow().fields;
        return CombineDateTime(DateSerial(f.tm_year + 1900, f.tm_mon + 1, f.tm_mday),
                               TimeSerial(f.tm_hour, f.tm_min, f.tm_sec));
    }

    void SleepMilliseconds(int milliseconds) override {
        if (milliseconds > 0) std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
};

}  // namespace

std::shared_ptr<Clock> MakeSystemClock() { return std::make_shared<SystemClock>(); }

}  // namespace corvid::automation
