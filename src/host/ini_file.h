// Reads one value from initialisation-file text the way the Windows profile reader does:
// section and key names compare without regard to case, the value is trimmed of blanks and
// of one pair of matching surrounding quotes, lines starting with ';' are comments, the first
// matching entry wins and a value is cut to 1023 characters.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvid::host {

inline constexpr std::size_t kIniValueMaxLength = 1023;

// The value of `key` in `section` of the ini text, or nothing when either is absent.
std::optional<std::string> FindIniValue(std::string_view content, std::string_view section,
                                        std::string_view key);

// The same, reading the file at `path`; nothing when the file cannot be read.
std::optional<std::string> ReadIniFileValue(const std::string& path, std::string_view section,
                                            std::string_view key);

}  // namespace corvid::host
