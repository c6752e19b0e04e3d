// A request and a response of the API as the routes see them, free of the HTTP library:
// the server fills these from the wire and writes the answer back.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvid::service {

struct ApiRequest {
    std::string method;  // "GET", "POST", ...
    std::string target;  // path and query as sent ("/v1/jobs?limit=5")
    std::optional<std::string> origin;
    std::optional<std::string> host;
    std::optional<std::string> authorization;
    std::optional<std::string> idempotencyKey;
    std::optional<std::string> contentType;
    bool hasBody = false;  // a length above zero or a chunked body
    bool upgrade = false;  // asks for a WebSocket
    // A browser's preflight asks whether a public page may call this private address.
    bool privateNetwork = false;
    std::string body;
};

struct ApiResponse {
    int status = 200;
    std::string contentType = "application/json";
    std::string body;
    std::vector<std::pair<std::string, std::string>> headers;
};

}  // namespace corvid::service
