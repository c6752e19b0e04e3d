#include "corvid/watchdog.h"

namespace corvid::tool {

Watchdog::Watchdog(std::chrono::duration<double> deadline, std::function<void()> onExpiry)
    : onExpiry_(std::move(onExpiry)) {
    const auto until = std::chrono::steady_clock::now() +
                       std::chrono::duration_cast<std::chrono::steady_clock::duration>(deadline);
    thread_ = std::thread([this, until] { Watch(until); });
}

Watchdog::~Watchdog() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        done_ = true;
    }
    disarmed_.notify_one();
    thread_.join();
}

void Watchdog::Watch(std::chrono::steady_clock::time_point until) {
    std::unique_lock<std::mutex> lock(mutex_);
    // On the steady clock, so that setting the computer's clock does not move the deadline.
    if (disarmed_.wait_until(lock, until, [this] { return done_; })) return;
    lock.unlock();
    onExpiry_();
}

}  // namespace corvid::tool
