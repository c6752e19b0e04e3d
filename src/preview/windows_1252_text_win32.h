// Report text is Windows-1252 bytes; GDI's wide functions take UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace corvid::preview {

std::wstring WideFromWindows1252(std::string_view bytes);
// Characters outside the code page become "?".
std::string Windows1252FromWide(std::wstring_view wide);

}  // namespace corvid::preview
