// Case-insensitive comparison of setting names (ASCII letters only, as the names are ASCII).
#pragma once

#include <string>
#include <string_view>

namespace corvid::host {

bool EqualsIgnoreCase(std::string_view a, std::string_view b);
// Upper-cased copy, for use as a case-insensitive map key.
std::string UpperAscii(std::string_view text);

}  // namespace corvid::host
