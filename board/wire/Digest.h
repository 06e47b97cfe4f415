#pragma once

#include <nettle/sha2.h>

#include <optional>
#include <string>
#include <string_view>

namespace ORVLib::Board {

/// The SHA-256 digest of bytes that come piece by piece.
class Digest {
public:
    static constexpr std::size_t SIZE = SHA256_DIGEST_SIZE;

    Digest() { sha256_init(&m_context); }

    void add(std::string_view bytes);

    /// The digest's bytes, of what was added so far.
    std::string get() const;

private:
    sha256_ctx m_context;
};

/// Two lower-case digits a byte.
std::string formatHex(std::string_view bytes);

/// The bytes of such digits; none for any other text.
std::optional<std::string> parseHex(std::string_view digits);

}  // namespace ORVLib::Board
