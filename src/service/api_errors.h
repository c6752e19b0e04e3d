// The API's errors: every refusal is {"error": {"status": N, "message": "..."}} and changes
// nothing. Routes throw ApiError; the server turns it into that answer.
#pragma once

#include <stdexcept>
#include <string>

#include "service/api_message.h"

namespace corvid::service {

class ApiError : public std::runtime_error {
  public:
    ApiError(int status, const std::string& message)
        : std::runtime_error(message), status_(status) {}
    int status() const { return status_; }

  private:
    int status_;
};

ApiResponse ErrorResponse(int status, const std::string& message);

}  // namespace corvid::service
