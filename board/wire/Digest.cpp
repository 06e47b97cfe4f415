#include "wire/Digest.h"

namespace ORVLib::Board {

namespace {

constexpr std::string_view DIGITS = "0123456789abcdef";

}  // namespace

void Digest::add(std::string_view bytes) {
    sha256_update(&m_context, bytes.size(), reinterpret_cast<const uint8_t*>(bytes.data()));
}

std::string Digest::get() const {
    sha256_ctx context = m_context;  // reading a digest ends its context
    uint8_t digest[SIZE];
    sha256_digest(&context, sizeof digest, digest);
    return {std::begin(digest), std::end(digest)};
}

std::string formatHex(std::string_view bytes) {
    std::string digits;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        digits += DIGITS[value >> 4U];
        digits += DIGITS[value & 15U];
    }
    return digits;
}

std::optional<std::string> parseHex(std::string_view digits) {
    if (digits.size() % 2 != 0 || digits.find_first_not_of(DIGITS) != std::string_view::npos) {
        return std::nullopt;
    }
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes += static_cast<char>(DIGITS.find(digits[i]) << 4U | DIGITS.find(digits[i + 1]));
    }
    return bytes;
}

}  // namespace ORVLib::Board
