#include "service/event_streams.h"

#include <algorithm>

namespace corvid::service {

void EventStreams::Add(const std::shared_ptr<Stream>& stream) {
    std::lock_guard lock(mutex_);
    streams_.push_back(stream);
}

void EventStreams::Publish(const nlohmann::json& event) {
    auto text = std::make_shared<const std::string>(
        event.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
    std::lock_guard lock(mutex_);
    std::erase_if(streams_, [](const auto& weak) { return weak.expired(); });
    for (const auto& weak : streams_)
        if (auto stream = weak.lock()) stream->Send(text);
}

}  // namespace corvid::service
