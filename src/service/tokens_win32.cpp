#include <windows.h>
// windows.h first: bcrypt.h needs its types.
#include <bcrypt.h>

#include <stdexcept>

#include "service/token_hex.h"
#include "service/tokens.h"

namespace corvid::service {
namespace {

void Check(NTSTATUS status, const char* what) {
    if (status < 0) throw std::runtime_error(std::string(what) + " failed");
}

// The algorithm provider and the hash object, closed whatever happens.
struct Sha256 {
    BCRYPT_ALG_HANDLE algorithm = nullptr;
    BCRYPT_HASH_HANDLE hash = nullptr;
    Sha256() {
        Check(BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0),
              "BCryptOpenAlgorithmProvider");
        Check(BCryptCreateHash(algorithm, &hash, nullptr, 0, nullptr, 0, 0), "BCryptCreateHash");
    }
    ~Sha256() {
        if (hash) BCryptDestroyHash(hash);
        if (algorithm) BCryptCloseAlgorithmProvider(algorithm, 0);
    }
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;
};

}  // namespace

std::string NewToken() {
    unsigned char bytes[32];
    Check(BCryptGenRandom(nullptr, bytes, sizeof bytes, BCRYPT_USE_SYSTEM_PREFERRED_RNG),
          "BCryptGenRandom");
    return HexOf(bytes, sizeof bytes);
}

std::string TokenHash(std::string_view token) {
    Sha256 sha;
    auto* data = reinterpret_cast<PUCHAR>(const_cast<char*>(token.data()));
    Check(BCryptHashData(sha.hash, data, static_cast<ULONG>(token.size()), 0), "BCryptHashData");
    unsigned char digest[32];
    Check(BCryptFinishHash(sha.hash, digest, sizeof digest, 0), "BCryptFinishHash");
    return HexOf(digest, sizeof digest);
}

}  // namespace corvid::service
