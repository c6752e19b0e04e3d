// The journal's query from GET /v1/jobs parameters: since (ISO 8601), state, printer,
// before (a job id, for paging) and limit (1 to 500). Throws ApiError 400 naming the
// parameter at fault.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "service/journal.h"

namespace corvid::service {

JobQuery JobQueryOf(const std::vector<std::pair<std::string, std::string>>& params);
// A whole positive decimal number, else none.
std::optional<std::int64_t> PositiveNumber(std::string_view text);

}  // namespace corvid::service
