// The API's rules, request to response, over the JobDesk: who may call (origin, token),
// which endpoint, and what each answers. Free of the HTTP library; HttpServer feeds it.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "service/api_message.h"
#include "service/job_desk.h"

namespace corvid::service {

class ApiRoutes {
  public:
    ApiRoutes(JobDesk& desk, std::vector<std::string> allowedOrigins);

    // What the head alone settles, before the body is read: a refusal (403 for a foreign
    // origin, before anything else; 401; 404; 405; 415) or a browser's preflight answer.
    // None: read the body and Answer.
    std::optional<ApiResponse> Screen(const ApiRequest& head);
    // A screened request with its body.
    ApiResponse Answer(const ApiRequest& request);
    // A screened request that opens the event stream (a WebSocket on /v1/events).
    static bool OpensEvents(const ApiRequest& head);

  private:
    std::optional<ApiResponse> Refusal(const ApiRequest& head);
    // An allowed origin, the service's own, or none (a program, not a page).
    bool OriginAllowed(const ApiRequest& head) const;
    using QueryParams = std::vector<std::pair<std::string, std::string>>;
    // Why the request's token is refused, if it is. `query`: where the request may also
    // carry the token as ?token=, else null.
    std::optional<std::string> TokenRefusal(const ApiRequest& head, const QueryParams* query);
    ApiResponse Dispatch(const ApiRequest& request);
    ApiResponse PostJob(const ApiRequest& request);
    ApiResponse ListJobs(const ApiRequest& request);
    ApiResponse ResolveJob(const std::string& id, const ApiRequest& request);
    ApiResponse Pair(const ApiRequest& request);
    // Lets a page of an allowed origin read the answer.
    ApiResponse ForOrigin(const ApiRequest& head, ApiResponse response) const;

    JobDesk& desk_;
    std::vector<std::string> allowedOrigins_;
};

}  // namespace corvid::service
