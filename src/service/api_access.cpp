// Who may call: the origin allow-list, the bearer token, the endpoint and its method, and
// the body's type, all settled from the head before the body is read.
#include <algorithm>
#include <boost/asio/ip/address.hpp>
#include <cctype>

#include "service/api_errors.h"
#include "service/api_routes.h"
#include "service/api_target.h"

namespace corvid::service {
namespace {

bool SameLetters(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) ==
               std::tolower(static_cast<unsigned char>(y));
    });
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
    return text;
}

// "Bearer T" (the scheme in any case); none for another scheme.
std::optional<std::string_view> BearerToken(std::string_view authorization) {
    authorization = Trimmed(authorization);
    constexpr std::string_view scheme = "bearer ";
    if (authorization.size() <= scheme.size() ||
        !SameLetters(authorization.substr(0, scheme.size()), scheme))
        return std::nullopt;
    return Trimmed(authorization.substr(scheme.size()));
}

bool IsJson(std::string_view contentType) {
    return SameLetters(Trimmed(contentType.substr(0, contentType.find(';'))), "application/json");
}

ApiResponse Preflight(bool privateNetwork) {
    ApiResponse response;
    response.status = 204;
    response.contentType.clear();
    response.headers = {
        {"Access-Control-Allow-Methods", "GET, POST"},
        {"Access-Control-Allow-Headers", "Authorization, Content-Type, Idempotency-Key"},
        {"Access-Control-Max-Age", "600"}};
    // Chromium asks before a public page reaches a loopback or LAN address.
    if (privateNetwork)
        response.headers.emplace_back("Access-Control-Allow-Private-Network", "true");
    return response;
}

// An IP address or "localhost": a name that DNS rebinding cannot point at this service.
bool IsLocalHostName(std::string_view host) {
    const std::size_t colon = host.rfind(':');
    if (colon != std::string_view::npos && host.find(']', colon) == std::string_view::npos)
        host = host.substr(0, colon);
    if (host.size() > 2 && host.front() == '[' && host.back() == ']')
        host = host.substr(1, host.size() - 2);
    if (SameLetters(host, "localhost")) return true;
    boost::system::error_code error;
    boost::asio::ip::make_address(std::string(host), error);
    return !error;
}

}  // namespace

ApiRoutes::ApiRoutes(JobDesk& desk, std::vector<std::string> allowedOrigins)
    : desk_(desk), allowedOrigins_(std::move(allowedOrigins)) {}

std::optional<ApiResponse> ApiRoutes::Screen(const ApiRequest& head) {
    auto refusal = Refusal(head);
    if (!refusal) return std::nullopt;
    return ForOrigin(head, std::move(*refusal));
}

bool ApiRoutes::OriginAllowed(const ApiRequest& head) const {
    if (!head.origin) return true;
    if (std::find(allowedOrigins_.begin(), allowedOrigins_.end(), *head.origin) !=
        allowedOrigins_.end())
        return true;
    // The dashboard's own calls: browsers send Origin on posts and WebSockets.
    return head.host && IsLocalHostName(*head.host) && *head.origin == "http://" + *head.host;
}

std::optional<ApiResponse> ApiRoutes::Refusal(const ApiRequest& head) {
    if (!OriginAllowed(head))
        return ErrorResponse(403, "origin " + *head.origin + " is not allowed");
    // A browser asks before a call with a token or a JSON body, and sends no token to ask.
    if (head.method == "OPTIONS" && head.origin) return Preflight(head.privateNetwork);
    auto target = ParseTarget(head.target);
    if (!target) return ErrorResponse(400, "malformed request target: " + head.target);
    auto match = MatchEndpoint(target->segments);
    bool events = match && match->endpoint == Endpoint::kEvents;
    if (!match || match->needsToken) {
        if (auto refusal = TokenRefusal(head, events ? &target->params : nullptr))
            return ErrorResponse(401, *refusal);
    }
    if (!match) return ErrorResponse(404, "no such endpoint: " + head.target);
    if (!AllowsMethod(*match, head.method)) {
        auto response = ErrorResponse(405, head.method + " is not allowed on " + head.target);
        response.headers.emplace_back("Allow", std::string(match->methods));
        return response;
    }
    if (head.hasBody && !IsJson(head.contentType.value_or("")))
        return ErrorResponse(
            415, "the body must be application/json, not " + head.contentType.value_or("untyped"));
    return std::nullopt;
}

// Browsers cannot set headers on a WebSocket, so the event stream also takes ?token=.
std::optional<std::string> ApiRoutes::TokenRefusal(const ApiRequest& head,
                                                   const QueryParams* query) {
    std::optional<std::string> token;
    if (head.authorization) {
        token = std::string(BearerToken(*head.authorization).value_or(""));
    } else if (query) {
        for (const auto& [name, value] : *query)
            if (name == "token") token = value;
    }
    if (!token) return "a token is needed: Authorization: Bearer TOKEN";
    if (token->empty() || !desk_.Authorised(*token)) return "unknown token";
    return std::nullopt;
}

ApiResponse ApiRoutes::ForOrigin(const ApiRequest& head, ApiResponse response) const {
    if (head.origin && OriginAllowed(head)) {
        response.headers.emplace_back("Access-Control-Allow-Origin", *head.origin);
        response.headers.emplace_back("Vary", "Origin");
    }
    return response;
}

bool ApiRoutes::OpensEvents(const ApiRequest& head) {
    auto target = ParseTarget(head.target);
    auto match = target ? MatchEndpoint(target->segments) : std::nullopt;
    return head.upgrade && match && match->endpoint == Endpoint::kEvents;
}

}  // namespace corvid::service
