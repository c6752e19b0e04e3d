// Where changes are announced: job states and steps, printer status. The WebSocket
// sessions subscribe; workers publish. A subscriber must not block: it queues the message
// for its own connection.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <nlohmann/json.hpp>

namespace corvid::service {

class EventHub {
  public:
    using Subscriber = std::function<void(const nlohmann::json& event)>;

    std::uint64_t Subscribe(Subscriber subscriber);
    void Unsubscribe(std::uint64_t id);
    // Calls every subscriber with the event.
    void Publish(const nlohmann::json& event);

  private:
    std::mutex mutex_;
    std::uint64_t next_ = 1;
    std::map<std::uint64_t, Subscriber> subscribers_;
};

}  // namespace corvid::service
