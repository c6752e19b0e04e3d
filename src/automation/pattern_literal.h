// Literal text inside Format patterns: a backslash copies the next character, a quoted
// run is copied without its quotes, anything else is copied as it stands.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvid::automation {

// Copies the literal at `at` to `out`; returns the position after it.
inline std::size_t CopyPatternLiteral(std::string_view pattern, std::size_t at, std::string& out) {
    const char c = pattern[at];
    if (c == '\\' && at + 1 < pattern.size()) {
        out += pattern[at + 1];
        return at + 2;
    }
    if (c == '"') {
        const std::size_t close = pattern.find('"', at + 1);
        const std::size_t end = close == std::string_view::npos ? pattern.size() : close;
        out.append(pattern.substr(at + 1, end - at - 1));
        return close == std::string_view::npos ? end : end + 1;
    }
    out += c;
    return at + 1;
}

}  // namespace corvid::automation
