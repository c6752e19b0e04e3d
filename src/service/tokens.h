// Tokens that callers of the service present as "Authorization: Bearer TOKEN". A new
// token is 32 random bytes in hexadecimal; only its SHA-256 (hexadecimal) is kept.
#pragma once

#include <string>
#include <string_view>

namespace corvid::service {

// From the system's cryptographic random source.
std::string NewToken();
std::string TokenHash(std::string_view token);
// Six random decimal digits, for a person to type.
std::string NewPairingCode();

}  // namespace corvid::service
