#include "service/api_target.h"

#include <boost/url/parse.hpp>

#include "service/web_assets.h"

namespace corvid::service {

std::optional<ApiTarget> ParseTarget(std::string_view target) {
    auto url = boost::urls::parse_origin_form(target);
    if (!url) return std::nullopt;
    ApiTarget parsed;
    for (const auto& segment : url->segments()) parsed.segments.push_back(segment);
    // A trailing slash leaves an empty last segment: "/v1/jobs/" is "/v1/jobs".
    if (!parsed.segments.empty() && parsed.segments.back().empty()) parsed.segments.pop_back();
    for (const auto& param : url->params()) parsed.params.emplace_back(param.key, param.value);
    return parsed;
}

std::optional<EndpointMatch> MatchEndpoint(const std::vector<std::string>& s) {
    auto is = [&](std::initializer_list<std::string_view> fixed) {
        if (fixed.size() != s.size()) return false;
        std::size_t i = 0;
        for (auto part : fixed) {
            if (part != "*" && part != s[i]) return false;
            ++i;
        }
        return true;
    };
    if (is({"health"})) return EndpointMatch{Endpoint::kHealth, "", "GET", false};
    if (is({"metrics"})) return EndpointMatch{Endpoint::kMetrics, "", "GET"};
    if (is({"v1", "jobs"})) return EndpointMatch{Endpoint::kJobs, "", "GET, POST"};
    if (is({"v1", "jobs", "*"})) return EndpointMatch{Endpoint::kJob, s[2], "GET"};
    if (is({"v1", "jobs", "*", "resolve"})) return EndpointMatch{Endpoint::kResolve, s[2], "POST"};
    if (is({"v1", "printers"})) return EndpointMatch{Endpoint::kPrinters, "", "GET"};
    if (is({"v1", "printers", "*", "status"}))
        return EndpointMatch{Endpoint::kPrinterStatus, s[2], "GET"};
    if (is({"v1", "printers", "*", "paper"}))
        return EndpointMatch{Endpoint::kPrinterPaper, s[2], "GET"};
    // A browser that is not logged in yet trades a pairing code for a token.
    if (is({"v1", "pair"})) return EndpointMatch{Endpoint::kPair, "", "POST", false};
    if (is({"v1", "events"})) return EndpointMatch{Endpoint::kEvents, "", "GET"};
    // The dashboard's files must load before anyone has logged in.
    if (FindWebAsset(s)) return EndpointMatch{Endpoint::kWebFile, "", "GET", false};
    return std::nullopt;
}

// Endpoints take only GET and POST, neither a part of the other's name.
bool AllowsMethod(const EndpointMatch& match, std::string_view method) {
    return (method == "GET" || method == "POST") &&
           match.methods.find(method) != std::string_view::npos;
}

}  // namespace corvid::service
