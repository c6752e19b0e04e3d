// What each endpoint answers, once Screen has let the request through.
#include "service/api_routes.h"

#include "corvid_version.h"
#include "jobs/job_request.h"
#include "service/api_errors.h"
#include "service/api_query.h"
#include "service/api_target.h"
#include "service/web_assets.h"

namespace corvid::service {
namespace {

ApiResponse Json(int status, const nlohmann::json& body) {
    ApiResponse response;
    response.status = status;
    response.body = body.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    return response;
}

ApiResponse WebFile(const WebAsset& file) {
    ApiResponse response{200, std::string(file.contentType), std::string(file.body), {}};
    response.headers = {{"Content-Security-Policy", kDashboardPolicy},
                        {"X-Content-Type-Options", "nosniff"},
                        {"Referrer-Policy", "no-referrer"},
                        {"Cache-Control", "no-cache"}};
    return response;
}

std::int64_t JobId(const std::string& id) {
    auto number = PositiveNumber(id);
    if (!number) throw ApiError(404, "no job " + id);
    return *number;
}

// 1 to 128 printable ASCII characters.
const std::string& CheckedKey(const std::optional<std::string>& key) {
    if (!key) throw ApiError(400, "the Idempotency-Key header is needed");
    bool printable = !key->empty() && key->size() <= 128;
    for (char c : *key) printable = printable && c >= 0x20 && c <= 0x7E;
    if (!printable)
        throw ApiError(400, "Idempotency-Key: expected 1 to 128 printable ASCII characters");
    return *key;
}

}  // namespace

ApiResponse ApiRoutes::Answer(const ApiRequest& request) {
    try {
        return ForOrigin(request, Dispatch(request));
    } catch (const ApiError& e) {
        return ForOrigin(request, ErrorResponse(e.status(), e.what()));
    } catch (const std::exception& e) {
        return ForOrigin(request, ErrorResponse(500, std::string("internal error: ") + e.what()));
    }
}

ApiResponse ApiRoutes::Dispatch(const ApiRequest& request) {
    auto target = ParseTarget(request.target);
    auto match = MatchEndpoint(target->segments);
    switch (match->endpoint) {
        case Endpoint::kHealth:
            return Json(200, {{"status", "ok"}, {"version", CORVID_VERSION}});
        case Endpoint::kMetrics: {
            ApiResponse response{200, "text/plain; version=0.0.4", desk_.Metrics(), {}};
            return response;
        }
        case Endpoint::kJobs:
            return request.method == "POST" ? PostJob(request) : ListJobs(request);
        case Endpoint::kJob: {
            auto job = desk_.Job(JobId(match->id));
            if (!job) throw ApiError(404, "no job " + match->id);
            return Json(200, *job);
        }
        case Endpoint::kResolve:
            return ResolveJob(match->id, request);
        case Endpoint::kPrinters:
            return Json(200, desk_.Printers());
        case Endpoint::kPrinterStatus: {
            auto status = desk_.PrinterStatus(match->id);
            if (!status) throw ApiError(404, "no printer " + match->id);
            return Json(200, *status);
        }
        case Endpoint::kPrinterPaper: {
            auto paper = desk_.Paper(match->id);
            if (!paper)
                throw ApiError(404, "no paper roll to show for printer " + match->id +
                                        ": only the built-in simulated printer has one");
            return Json(200, {{"printer", match->id}, {"text", *paper}});
        }
        case Endpoint::kPair:
            return Pair(request);
        case Endpoint::kWebFile:
            return WebFile(*FindWebAsset(target->segments));
        case Endpoint::kEvents:
            break;
    }
    throw ApiError(400, "/v1/events is a WebSocket: open it with an upgrade");
}

ApiResponse ApiRoutes::PostJob(const ApiRequest& request) {
    const auto& key = CheckedKey(request.idempotencyKey);
    jobs::JobRequest job;
    try {
        job = jobs::ParseJobRequest(request.body);
    } catch (const std::exception& e) {
        // The validator's words as they are: they name the place.
        throw ApiError(400, e.what());
    }
    auto submission = desk_.Submit(key, job);
    using Outcome = Submission::Outcome;
    switch (submission.outcome) {
        case Outcome::kCreated:
            return Json(202, submission.job);
        case Outcome::kSame:
            return Json(200, submission.job);
        case Outcome::kConflict:
            throw ApiError(409, "Idempotency-Key " + key + " was used for another body (job " +
                                    submission.job.value("id", nlohmann::json()).dump() + ")");
        case Outcome::kUnknownPrinter:
            throw ApiError(404, "no printer " + job.printer.value_or(""));
        case Outcome::kPrinterNeeded:
            break;
    }
    throw ApiError(400, "printer: needed, the service has more than one printer");
}

ApiResponse ApiRoutes::Pair(const ApiRequest& request) {
    auto body = nlohmann::json::parse(request.body, nullptr, false);
    const bool hasCode = body.is_object() && body.contains("code") && body["code"].is_string();
    if (!hasCode) throw ApiError(400, "code: expected the 6 digits `corvid token pair` printed");
    auto paired = desk_.Pair(body["code"].get<std::string>());
    if (!paired) throw ApiError(401, "unknown, used or expired pairing code");
    return Json(200, *paired);
}

ApiResponse ApiRoutes::ListJobs(const ApiRequest& request) {
    return Json(200, desk_.Jobs(JobQueryOf(ParseTarget(request.target)->params)));
}

ApiResponse ApiRoutes::ResolveJob(const std::string& id, const ApiRequest& request) {
    auto body = nlohmann::json::parse(request.body, nullptr, false);
    std::string as = body.is_object() && body.contains("as") && body["as"].is_string()
                         ? body["as"].get<std::string>()
                         : "";
    if (as != "done" && as != "failed") throw ApiError(400, "as: expected \"done\" or \"failed\"");
    std::int64_t job = JobId(id);
    switch (desk_.Resolve(job, as == "done")) {
        case Resolution::kResolved:
            break;
        case Resolution::kUnknownJob:
            throw ApiError(404, "no job " + id);
        case Resolution::kNotInAttention:
            throw ApiError(409, "job " + id + " is not waiting for a decision");
    }
    auto resolved = desk_.Job(job);
    if (!resolved) throw ApiError(404, "no job " + id);
    return Json(200, *resolved);
}

}  // namespace corvid::service
