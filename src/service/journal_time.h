// Times as the journal keeps them: UTC, ISO 8601, to the millisecond
// ("2026-11-24T10:15:02.123Z"), so that comparing the text compares the times.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace corvid::service {

std::string UtcTimestamp(std::chrono::sys_time<std::chrono::milliseconds> when);

// Reads an ISO 8601 date ("2026-11-24") or date and time ("2026-11-24T06:15",
// "2026-11-24T06:15:02.5-04:00", "...Z"; no offset means UTC) and gives it in the journal's
// form; nothing when the text is not such a time.
std::optional<std::string> NormalizedUtcTime(std::string_view text);

}  // namespace corvid::service
