// The printer's code page, Windows-1252, shown as UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace corvid::sim {

// The five bytes the code page leaves undefined become the C1 controls of the same value.
std::string Cp1252ToUtf8(std::string_view bytes);

}  // namespace corvid::sim
