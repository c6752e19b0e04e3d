// Text in the printer's code page, Windows-1252, to and from UTF-8 and wide text (UTF-16 on
// Windows). Every byte has a character: the five bytes the code page leaves undefined (0x81,
// 0x8D, 0x8F, 0x90, 0x9D) stand for the C1 controls of the same value, as Windows itself
// converts them, so bytes survive the round trip. A character with no byte becomes '?', and
// so does a malformed UTF-8 sequence or a lone surrogate.
#pragma once

#include <string>
#include <string_view>

namespace corvid::text {

std::string Utf8FromWindows1252(std::string_view bytes);
std::string Windows1252FromUtf8(std::string_view utf8);

std::wstring WideFromWindows1252(std::string_view bytes);
std::string Windows1252FromWide(std::wstring_view wide);

}  // namespace corvid::text
