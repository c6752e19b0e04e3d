#include <openssl/evp.h>
#include <openssl/rand.h>

#include <stdexcept>

#include "service/token_hex.h"
#include "service/tokens.h"

namespace corvid::service {

std::string NewToken() {
    unsigned char bytes[32];
    if (RAND_bytes(bytes, sizeof bytes) != 1)
        throw std::runtime_error("the system's random source gave no bytes");
    return HexOf(bytes, sizeof bytes);
}

std::string TokenHash(std::string_view token) {
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    if (EVP_Digest(token.data(), token.size(), digest, &length, EVP_sha256(), nullptr) != 1)
        throw std::runtime_error("SHA-256 failed");
    return HexOf(digest, length);
}

}  // namespace corvid::service
