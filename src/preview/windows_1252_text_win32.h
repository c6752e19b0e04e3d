// Text between single-byte code pages and UTF-16, which the wide Win32 functions take.
// Report text is Windows-1252 bytes; the COM layer uses the same conversions with the
// system's ANSI code page.
#pragma once

#include <string>
#include <string_view>

namespace corvid::preview {

std::wstring WideFromCodePage(unsigned code_page, std::string_view bytes);
// Characters outside the code page become "?".
std::string CodePageFromWide(unsigned code_page, std::wstring_view wide);

inline constexpr unsigned kWindows1252 = 1252;
inline std::wstring WideFromWindows1252(std::string_view bytes) {
    return WideFromCodePage(kWindows1252, bytes);
}
inline std::string Windows1252FromWide(std::wstring_view wide) {
    return CodePageFromWide(kWindows1252, wide);
}

}  // namespace corvid::preview
