// The VB string operations the buffer and the report are built on, with their quirks:
// positions are 1-based, a start before 1 or a negative count raises error 5, and the Mid
// statement overwrites in place without ever changing the target's length.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace corvid::preview {

// Mid$(text, start, length): up to `length` characters from `start`; empty past the end.
std::string Mid(const std::string& text, std::int32_t start, std::int32_t length);
// Mid$(text, start): everything from `start`.
std::string Mid(const std::string& text, std::int32_t start);
// Left$(text, count).
std::string Left(const std::string& text, std::int32_t count);
// String$(count, c) and Space$(count).
std::string Repeat(std::int32_t count, char c);
inline std::string Space(std::int32_t count) { return Repeat(count, ' '); }
// InStr(start, text, find), binary compare: 1-based position of the first match, else 0.
std::int32_t InStr(std::int32_t start, const std::string& text, const std::string& find);
// Length of a text as a VB Long; a text longer than that raises overflow.
std::int32_t Len(const std::string& text);

// The Mid statement, Mid(target, start[, length]) = replacement: overwrites the replacement's
// characters (at most `length` of them) from `start`, clipped at the end of the target.
// A start past the end raises error 5 unless there is nothing to write.
void MidAssign(std::string& target, std::int32_t start, const std::string& replacement,
               std::optional<std::int32_t> length = std::nullopt);

}  // namespace corvid::preview
