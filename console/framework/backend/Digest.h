#pragma once

#include <nettle/sha2.h>

#include <string>

namespace Console {

/// A SHA-256 digest that is made piece by piece.
class Digest {
public:
    Digest();

    void add(const char* data, std::size_t size);

    /// The digest of all that was added, in hexadecimal. Begins anew.
    std::string take();

private:
    sha256_ctx m_context;
};

/// Digits of a digest in hexadecimal.
constexpr std::size_t DIGEST_DIGITS = std::size_t{2} * SHA256_DIGEST_SIZE;

/// The SHA-256 digest of bytes in hexadecimal.
std::string digestOf(const std::string& bytes);

/// As digestOf(), of a file; empty when it cannot be read.
std::string digestOfFile(const std::string& path);

/// Adds the two hexadecimal digits of a byte.
void appendHex(std::string& text, unsigned char byte);

}  // namespace Console
