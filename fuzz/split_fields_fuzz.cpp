// Splitting a reply into its line-feed separated fields and joining them again.
// Properties: joining with a line feed gives the text back; no field holds a line feed;
// a non-empty text has one field more than it has line feeds; joining with any other
// separator puts exactly that separator between the same fields.
#include <algorithm>
#include <cstdint>
#include <string>

#include "fuzz_support.h"
#include "session/responses.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvid::session;
    FuzzedDataProvider in(data, size);
    const std::string separator = in.ConsumeRandomLengthString(4);
    const std::string text = in.ConsumeRemainingBytesAsString();

    const Fields fields = SplitFields(text);
    FUZZ_CHECK(JoinFields(fields, "\n") == text);
    for (const std::string& field : fields) FUZZ_CHECK(field.find('\n') == std::string::npos);
    const auto feeds = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    FUZZ_CHECK(fields.size() == (text.empty() ? 0 : feeds + 1));

    const std::string joined = JoinFields(fields, separator);
    std::size_t at = 0;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) {
            FUZZ_CHECK(joined.compare(at, separator.size(), separator) == 0);
            at += separator.size();
        }
        FUZZ_CHECK(joined.compare(at, fields[i].size(), fields[i]) == 0);
        at += fields[i].size();
    }
    FUZZ_CHECK(at == joined.size());
    return 0;
}
