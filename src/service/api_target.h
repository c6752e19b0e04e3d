// A request target ("/v1/jobs?state=done&limit=5") split into its decoded path segments
// and query parameters, and matched against the API's endpoints.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvid::service {

struct ApiTarget {
    std::vector<std::string> segments;  // "/v1/jobs/7" -> {"v1", "jobs", "7"}
    std::vector<std::pair<std::string, std::string>> params;
};

// None when the target is not a path with an optional query (origin form).
std::optional<ApiTarget> ParseTarget(std::string_view target);

enum class Endpoint {
    kHealth,
    kMetrics,
    kJobs,
    kJob,
    kResolve,
    kPrinters,
    kPrinterStatus,
    kPrinterPaper,
    kPair,
    kEvents,
    kWebFile
};

struct EndpointMatch {
    Endpoint endpoint;
    std::string id;            // the job or printer the path names, else empty
    std::string_view methods;  // those the endpoint takes, as an Allow header lists them
    bool needsToken = true;
};

std::optional<EndpointMatch> MatchEndpoint(const std::vector<std::string>& segments);
bool AllowsMethod(const EndpointMatch& match, std::string_view method);

}  // namespace corvid::service
