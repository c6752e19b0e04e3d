// The tool's connection to a print service: one HTTP/1.1 request at a time, and the
// WebSocket of its events. Every wait is bounded; a failure of the network (not an HTTP
// status) throws NetworkError.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "corvid/service_options.h"

namespace corvid::tool {

class NetworkError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct HttpReply {
    int status = 0;
    std::string body;
};

// `method` "GET" or "POST"; `key` (when not empty) goes in the Idempotency-Key header and
// `body` (when not empty) is sent as JSON.
HttpReply SendRequest(const ServiceTarget& service, const std::string& method,
                      const std::string& target, const std::string& body = {},
                      const std::string& key = {});

// GET /v1/events, open for as long as the object lives.
class EventStream {
  public:
    explicit EventStream(const ServiceTarget& service);
    ~EventStream();
    EventStream(const EventStream&) = delete;
    EventStream& operator=(const EventStream&) = delete;

    // The next message, or none when none came within `wait` (the read stays pending).
    std::optional<std::string> Next(std::chrono::milliseconds wait);

  private:
    struct Connection;
    std::unique_ptr<Connection> connection_;
};

}  // namespace corvid::tool
