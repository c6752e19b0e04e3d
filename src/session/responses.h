// Commands whose answer carries data: the reply's line-feed separated fields, one block
// or several.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvid::session {

class Exchange;
using Fields = std::vector<std::string>;

// Split at line feed the way the host's Split does: an empty text has no fields.
Fields SplitFields(const std::string& text);
// The fields joined by `separator`, which stands only between neighbours.
std::string JoinFields(const Fields& fields, std::string_view separator);

// Status request, the command, and the fields of its reply; a one-field substitute
// ("VOID" with "SkipChecks" on, "pfError" on failure) otherwise.
Fields ReadResponse(Exchange& exchange, std::string_view command);
// While the last block ended with ETB: acknowledges it and appends the next block's fields.
void ReadFurtherBlocks(Exchange& exchange, std::vector<Fields>& blocks);

}  // namespace corvid::session
