#include "service/event_hub.h"

namespace corvid::service {

std::uint64_t EventHub::Subscribe(Subscriber subscriber) {
    std::lock_guard lock(mutex_);
    std::uint64_t id = next_++;
    subscribers_.emplace(id, std::move(subscriber));
    return id;
}

void EventHub::Unsubscribe(std::uint64_t id) {
    std::lock_guard lock(mutex_);
    subscribers_.erase(id);
}

// Under the lock, so that every subscriber sees events in the same order and none is called
// once Unsubscribe has returned. Subscribers only queue, so the lock is held briefly.
void EventHub::Publish(const nlohmann::json& event) {
    std::lock_guard lock(mutex_);
    for (const auto& [id, subscriber] : subscribers_) subscriber(event);
}

}  // namespace corvid::service
