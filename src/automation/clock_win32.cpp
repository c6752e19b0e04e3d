#include <windows.h>

#include "automation/clock.h"
#include "automation/dates.h"

namespace corvid::automation {
namespace {

class SystemClock : public Clock {
  public:
    float SecondsSinceMidnight() override {
        SYSTEMTIME now{};
        GetLocalTime(&now);
        const double seconds =
            now.wHour * 3600.0 + now.wMinute * 60.0 + now.wSecond + now.wMilliseconds / 1000.0;
        return static_cast<float>(seconds);
    }

    Date Now() override {
        SYSTEMTIME now{};
        GetLocalTime(&now);
        return CombineDateTime(DateSerial(now.wYear, now.wMonth, now.wDay),
                               TimeSerial(now.wHour, now.wMinute, now.wSecond));
    }

    void SleepMilliseconds(int milliseconds) override {
        Sleep(milliseconds > 0 ? static_cast<DWORD>(milliseconds) : 0);
    }
};

}  // namespace

std::shared_ptr<Clock> MakeSystemClock() { return std::make_shared<SystemClock>(); }

}  // namespace corvid::automation
