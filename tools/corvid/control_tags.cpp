#include "corvid/control_tags.h"

#include <cctype>

#include "session/control_values.h"

namespace corvid::tool {

namespace {

int NamedCode(std::string_view name) {
    using namespace session;
    struct Tag {
        std::string_view name;
        int code;
    };
    static constexpr Tag kTags[] = {{"STX", STX}, {"ETX", ETX}, {"EOT", EOT}, {"ENQ", ENQ},
                                    {"ACK", ACK}, {"NAK", NAK}, {"ETB", ETB}};
    for (const Tag& tag : kTags) {
        if (tag.name == name) return tag.code;
    }
    return -1;
}

int DecimalCode(std::string_view digits) {
    if (digits.size() != 3) return -1;
    int code = 0;
    for (char c : digits) {
        if (!std::isdigit(static_cast<unsigned char>(c))) return -1;
        code = code * 10 + (c - '0');
    }
    return code < 256 ? code : -1;
}

}  // namespace

std::string ParseControlTags(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '[' && i + 4 < text.size() && text[i + 4] == ']') {
            const std::string_view inner = text.substr(i + 1, 3);
            int code = NamedCode(inner);
            if (code < 0) code = DecimalCode(inner);
            if (code >= 0) {
                out += static_cast<char>(code);
                i += 4;
                continue;
            }
        }
        out += text[i];
    }
    return out;
}

}  // namespace corvid::tool
