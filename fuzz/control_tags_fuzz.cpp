// The tool's command-line tags for control bytes ("[STX]", "[010]").
// Properties: a text without "[" comes back unchanged; every tag shortens the text by
// exactly four characters; the trace's escaped form of any bytes (other than "[", which
// the escaping leaves as it is) reads back to the same bytes.
#include <algorithm>
#include <cstdint>
#include <string>

#include "corvid/control_tags.h"
#include "fuzz_support.h"
#include "session/framing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using corvid::tool::ParseControlTags;
    const std::string text(reinterpret_cast<const char*>(data), size);

    const std::string parsed = ParseControlTags(text);
    FUZZ_CHECK(parsed.size() <= text.size());
    FUZZ_CHECK((text.size() - parsed.size()) % 4 == 0);
    if (text.find('[') == std::string::npos) FUZZ_CHECK(parsed == text);

    std::string bytes = text;
    std::replace(bytes.begin(), bytes.end(), '[', '(');
    FUZZ_CHECK(ParseControlTags(corvid::session::EscapeString(bytes)) == bytes);
    return 0;
}
