#pragma once

#include <nettle/sha2.h>

#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "common/Hex.h"

namespace ORVLib::Protocol {

/// The SHA-256 digest of bytes that are added piece by piece. Programs that include this link
/// nettle.
class Digest {
public:
    static constexpr std::size_t SIZE = SHA256_DIGEST_SIZE;
    static constexpr std::size_t DIGITS = 2 * SIZE;

    Digest() { sha256_init(&m_context); }

    void add(std::string_view bytes) {
        sha256_update(&m_context, bytes.size(),
                      reinterpret_cast<const std::uint8_t*>(bytes.data()));
    }

    /// The digest of the bytes added so far, as bytes and as hexadecimal digits.
    std::string get() const {
        sha256_ctx context = m_context;  // reading a digest ends its context
        std::uint8_t digest[SIZE];
        sha256_digest(&context, sizeof digest, digest);
        return {std::begin(digest), std::end(digest)};
    }
    std::string getHex() const { return formatHex(get()); }

private:
    sha256_ctx m_context;
};

/// The digest of bytes as hexadecimal digits.
inline std::string digestOf(std::string_view bytes) {
    Digest digest;
    digest.add(bytes);
    return digest.getHex();
}

}  // namespace ORVLib::Protocol
