#include "preview/line_break_offsets.h"

namespace corvid::preview {
namespace {

bool IsSecondHalfOfBreak(const std::string& text, std::size_t at) {
    return text[at] == '\n' && at > 0 && text[at - 1] == '\r';
}

}  // namespace

std::int32_t ControlOffset(const std::string& text, std::int32_t offset) {
    std::int32_t control = 0;
    for (std::size_t at = 0; at < text.size() && static_cast<std::int32_t>(at) < offset; ++at) {
        if (!IsSecondHalfOfBreak(text, at)) ++control;
    }
    return control;
}

std::int32_t TextOffset(const std::string& text, std::int32_t control_offset) {
    std::int32_t control = 0;
    std::size_t at = 0;
    for (; at < text.size(); ++at) {
        if (IsSecondHalfOfBreak(text, at)) continue;
        if (control == control_offset) break;
        ++control;
    }
    return static_cast<std::int32_t>(at);
}

}  // namespace corvid::preview
