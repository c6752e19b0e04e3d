// Bytes written as lowercase hexadecimal, the form tokens and their hashes take.
#pragma once

#include <cstddef>
#include <string>

namespace corvid::service {

std::string HexOf(const unsigned char* bytes, std::size_t count);

}  // namespace corvid::service
