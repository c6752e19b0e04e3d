// Runs an action once a deadline has passed, unless it is destroyed first.
//
// The tool bounds a whole run this way. Execute repeats its status request for as long as
// the printer stays silent, so no time-out inside the library ends the wait for a printer
// that is switched off or unplugged. Closing the port from another thread would not end it
// either (every read then fails at once and the request is simply repeated) and would race
// with the session's own use of the port. So the tool's action ends the process
// (ExitNow): a step that needs nothing from the stuck thread and cannot itself block, and
// after which the system closes the port.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace corvid::tool {

class Watchdog {
  public:
    Watchdog(std::chrono::duration<double> deadline, std::function<void()> onExpiry);
    // Disarms it and waits for its thread, which wakes at once.
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

  private:
    void Watch(std::chrono::steady_clock::time_point until);

    std::function<void()> onExpiry_;
    std::mutex mutex_;
    std::condition_variable disarmed_;
    bool done_ = false;
    std::thread thread_;
};

}  // namespace corvid::tool
