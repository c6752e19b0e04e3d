#include "service/token_hex.h"

#include <cstdint>
#include <cstdio>

#include "service/tokens.h"

namespace corvid::service {

std::string HexOf(const unsigned char* bytes, std::size_t count) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(count * 2);
    for (std::size_t i = 0; i < count; ++i) {
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 0x0F];
    }
    return text;
}

std::string NewPairingCode() {
    // 64 random bits modulo a million: the bias is below one in 10^13.
    const std::uint64_t random = std::stoull(NewToken().substr(0, 16), nullptr, 16);
    char code[7];
    std::snprintf(code, sizeof code, "%06u", static_cast<unsigned>(random % 1000000));
    return code;
}

}  // namespace corvid::service
