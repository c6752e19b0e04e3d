// Times in queries: ISO 8601 as a client writes it ("2026-11-24", "2026-11-24T10:15",
// "2026-11-24T10:15:02.5-04:00") turned into the journal's form, UTC to the millisecond
// ("2026-11-24T14:15:02.500Z"), so that times compare as text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvid::service {

// None when the text is not such a time or names no real day or hour.
std::optional<std::string> JournalTime(std::string_view iso);

}  // namespace corvid::service
