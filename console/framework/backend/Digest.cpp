#include "framework/backend/Digest.h"

#include <array>
#include <fstream>

namespace Console {

Digest::Digest() : m_context() {
    sha256_init(&m_context);
}

void Digest::add(const char* data, std::size_t size) {
    sha256_update(&m_context, size, reinterpret_cast<const std::uint8_t*>(data));
}

std::string Digest::take() {
    std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest{};
    sha256_digest(&m_context, digest.size(), digest.data());
    std::string text;
    for (const std::uint8_t byte : digest) {
        appendHex(text, byte);
    }
    return text;
}

std::string digestOf(const std::string& bytes) {
    Digest digest;
    digest.add(bytes.data(), bytes.size());
    return digest.take();
}

std::string digestOfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    Digest digest;
    std::array<char, 65536> block{};
    while (file) {
        file.read(block.data(), block.size());
        digest.add(block.data(), static_cast<std::size_t>(file.gcount()));
    }
    return file.eof() ? digest.take() : "";
}

void appendHex(std::string& text, unsigned char byte) {
    constexpr char DIGITS[] = "0123456789abcdef";
    text += DIGITS[byte >> 4];
    text += DIGITS[byte & 0xf];
}

}  // namespace Console
