#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ORVLib {

constexpr std::string_view HEX_DIGITS = "0123456789abcdef";

/// Two digits for each byte, in lower case.
inline std::string formatHex(std::string_view bytes) {
    std::string digits;
    digits.reserve(2 * bytes.size());
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        digits += HEX_DIGITS[value >> 4U];
        digits += HEX_DIGITS[value & 15U];
    }
    return digits;
}

/// True for `count` digits, in lower case, and nothing else.
inline bool isHex(std::string_view text, std::size_t count) {
    return text.size() == count && text.find_first_not_of(HEX_DIGITS) == std::string_view::npos;
}

/// The bytes that formatHex() makes these digits of; none for any other text.
inline std::optional<std::string> parseHex(std::string_view digits) {
    if (digits.size() % 2 != 0 || !isHex(digits, digits.size())) {
        return std::nullopt;
    }
    std::string bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        bytes +=
            static_cast<char>(HEX_DIGITS.find(digits[i]) << 4U | HEX_DIGITS.find(digits[i + 1]));
    }
    return bytes;
}

}  // namespace ORVLib
