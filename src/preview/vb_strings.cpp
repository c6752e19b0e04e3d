#include "preview/vb_strings.h"

#include <algorithm>
#include <limits>

#include "automation/vb_error.h"

namespace corvid::preview {
namespace {

[[noreturn]] void RaiseInvalidArgument() {
    throw automation::VbError::Standard(automation::vb_errors::kInvalidProcedureCall);
}

}  // namespace

std::int32_t Len(const std::string& text) {
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        throw automation::VbError::Standard(automation::vb_errors::kOverflow);
    }
    return static_cast<std::int32_t>(text.size());
}

std::string Mid(const std::string& text, std::int32_t start, std::int32_t length) {
    if (start < 1 || length < 0) RaiseInvalidArgument();
    const auto offset = static_cast<std::size_t>(start - 1);
    if (offset >= text.size()) return {};
    return text.substr(offset, static_cast<std::size_t>(length));
}

std::string Mid(const std::string& text, std::int32_t start) {
    return Mid(text, start, std::numeric_limits<std::int32_t>::max());
}

std::string Left(const std::string& text, std::int32_t count) {
    if (count < 0) RaiseInvalidArgument();
    return text.substr(0, static_cast<std::size_t>(count));
}

std::string Repeat(std::int32_t count, char c) {
    if (count < 0) RaiseInvalidArgument();
    return std::string(static_cast<std::size_t>(count), c);
}

std::int32_t InStr(std::int32_t start, const std::string& text, const std::string& find) {
    if (start < 1) RaiseInvalidArgument();
    const auto offset = static_cast<std::size_t>(start - 1);
    if (offset > text.size()) return 0;
    const auto found = text.find(find, offset);
    return found == std::string::npos ? 0 : static_cast<std::int32_t>(found + 1);
}

void MidAssign(std::string& target, std::int32_t start, const std::string& replacement,
               std::optional<std::int32_t> length) {
    if (start < 1 || (length && *length < 0)) RaiseInvalidArgument();
    std::size_t count = replacement.size();
    if (length) count = std::min(count, static_cast<std::size_t>(*length));
    if (count == 0) return;
    const auto offset = static_cast<std::size_t>(start - 1);
    if (offset >= target.size()) RaiseInvalidArgument();
    count = std::min(count, target.size() - offset);
    target.replace(offset, count, replacement, 0, count);
}

}  // namespace corvid::preview
