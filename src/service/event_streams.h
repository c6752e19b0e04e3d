// The open event streams (WebSockets) and the one subscription that feeds them: each event
// is written as text once and handed to every stream, which queues it for its own
// connection, so a slow client never holds up the publisher or the other clients.
#pragma once

#include <memory>
#include <mutex>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace corvid::service {

class EventStreams {
  public:
    class Stream {
      public:
        virtual ~Stream() = default;
        // Must not block.
        virtual void Send(std::shared_ptr<const std::string> text) = 0;
    };

    // Held weakly: a stream that has ended is dropped at the next event.
    void Add(const std::shared_ptr<Stream>& stream);
    void Publish(const nlohmann::json& event);

  private:
    std::mutex mutex_;
    std::vector<std::weak_ptr<Stream>> streams_;
};

}  // namespace corvid::service
