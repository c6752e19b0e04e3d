// Commands whose answer carries data: the reply's line-feed separated fields, one block
// or several.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "records/reply_fields.h"

namespace corvid::session {

class Exchange;
using records::Fields;
using records::SplitFields;

// How a retrieval sends its command: the session's own Execute, so that the command shows
// in the trace as any other. Returns pfError.
using ExecuteCommand = std::function<std::int16_t(std::string_view)>;

// The fields joined by `separator`, which stands only between neighbours.
std::string JoinFields(const Fields& fields, std::string_view separator);

// Status request, the command, and the fields of its reply; a one-field substitute
// ("VOID" with "SkipChecks" on, "pfError" on failure) otherwise.
// `execute` sends the command; left out, the exchange sends it directly.
Fields ReadResponse(Exchange& exchange, std::string_view command,
                    const ExecuteCommand& execute = {});
// While the last block ended with ETB: acknowledges it and appends the next block's fields.
void ReadFurtherBlocks(Exchange& exchange, std::vector<Fields>& blocks);

}  // namespace corvid::session
