#include "service/api_errors.h"

#include <nlohmann/json.hpp>

namespace corvid::service {

ApiResponse ErrorResponse(int status, const std::string& message) {
    nlohmann::json body = {{"error", {{"status", status}, {"message", message}}}};
    ApiResponse response;
    response.status = status;
    // Validation texts quote what the client sent, which may not be UTF-8.
    response.body = body.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    if (status == 401) response.headers.emplace_back("WWW-Authenticate", "Bearer");
    return response;
}

}  // namespace corvid::service
