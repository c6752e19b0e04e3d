#include "service/api_query.h"

#include <charconv>

#include "service/api_errors.h"
#include "service/journal_time.h"

namespace corvid::service {
namespace {

[[noreturn]] void Refuse(const std::string& name, const std::string& value,
                         const std::string& expected) {
    throw ApiError(400, name + "=" + value + ": expected " + expected);
}

}  // namespace

std::optional<std::int64_t> PositiveNumber(std::string_view text) {
    std::int64_t value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value <= 0) return std::nullopt;
    return value;
}

JobQuery JobQueryOf(const std::vector<std::pair<std::string, std::string>>& params) {
    JobQuery query;
    for (const auto& [name, value] : params) {
        if (name == "since") {
            query.since = NormalizedUtcTime(value);
            if (!query.since) Refuse(name, value, "an ISO 8601 date or time");
        } else if (name == "state") {
            query.state = JobStateNamed(value);
            if (!query.state)
                Refuse(name, value, "queued, printing, done, failed, cancelled or attention");
        } else if (name == "printer") {
            query.printer = value;
        } else if (name == "before") {
            query.before = PositiveNumber(value);
            if (!query.before) Refuse(name, value, "a job id");
        } else if (name == "limit") {
            auto limit = PositiveNumber(value);
            if (!limit || *limit > 500) Refuse(name, value, "a number from 1 to 500");
            query.limit = static_cast<int>(*limit);
        } else {
            throw ApiError(400, "unknown query parameter: " + name);
        }
    }
    return query;
}

}  // namespace corvid::service
