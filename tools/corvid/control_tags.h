// Commands typed on the command line may hold control bytes written as the trace writes
// them: "[STX]", "[ETX]", "[ENQ]", "[EOT]", "[ACK]", "[NAK]", "[ETB]" or "[010]".
#pragma once

#include <string>
#include <string_view>

namespace corvid::tool {

// Replaces every tag by its byte; text that is not a tag is kept as it is.
std::string ParseControlTags(std::string_view text);

}  // namespace corvid::tool
