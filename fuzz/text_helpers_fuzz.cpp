// Word wrap and fixed-width cutting of texts a host hands over for printing.
// Properties: the wrap ends; a width below 1 is refused with error 5; every line fits the
// width and holds no CR; it never makes more lines than there are characters; every
// printable character comes out exactly once and in order (only blanks and control
// characters are dropped at breaks). The cutters give exactly the width (padding) or at
// most it (centring), keeping the text's start and, when short, the whole text.
#include <cstdint>
#include <string>
#include <vector>

#include "automation/vb_error.h"
#include "documents/text_helpers.h"
#include "fuzz_support.h"

namespace {

std::string Printable(std::string_view text) {
    std::string out;
    for (char c : text) {
        if (static_cast<unsigned char>(c) > 32) out += c;
    }
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvid;
    FuzzedDataProvider in(data, size);
    const int width = in.ConsumeIntegralInRange<int>(-2, 100);
    const std::string text = in.ConsumeRemainingBytesAsString();

    if (width < 1) {
        bool refused = false;
        try {
            (void)documents::lmStr2Lines(text, width);
        } catch (const automation::VbError& error) {
            refused = error.number() == 5;
        }
        FUZZ_CHECK(refused);
        FUZZ_CHECK(documents::PadRightCut(text, width).empty());
        FUZZ_CHECK(documents::CenterCut(text, width).empty());
        return 0;
    }
    const auto w = static_cast<std::size_t>(width);

    const std::vector<std::string> lines = documents::lmStr2Lines(text, width);
    FUZZ_CHECK(lines.size() <= text.size());
    std::string joined;
    for (const std::string& line : lines) {
        FUZZ_CHECK(line.size() <= w);
        FUZZ_CHECK(line.find('\r') == std::string::npos);
        joined += line;
    }
    FUZZ_CHECK(Printable(joined) == Printable(text));

    const std::string padded = documents::PadRightCut(text, width);
    FUZZ_CHECK(padded.size() == w);
    const std::size_t kept = std::min(text.size(), w);
    FUZZ_CHECK(padded.compare(0, kept, text, 0, kept) == 0);
    FUZZ_CHECK(padded.find_first_not_of(' ', kept) == std::string::npos);

    const std::string centred = documents::CenterCut(text, width);
    FUZZ_CHECK(centred.size() <= w);
    if (text.size() >= w) {
        FUZZ_CHECK(centred == text.substr(0, w));
    } else {
        const std::size_t lead = centred.size() - text.size();
        FUZZ_CHECK(centred.compare(lead, std::string::npos, text) == 0);
        FUZZ_CHECK(centred.find_first_not_of(' ') >= lead);
        FUZZ_CHECK(lead <= w - text.size() - lead);  // never right of the middle
    }
    return 0;
}
