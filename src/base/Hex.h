#pragma once

#include <string>

/// Hexadecimal digits, read in either case.
namespace ORVLib::Gui::Hex {

/// In upper case, for bytes.
constexpr char DIGITS[] = "0123456789ABCDEF";

/// The value of a digit, or -1 for any other character.
constexpr int valueOf(char character) {
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    const int lower = character | 0x20;
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Appends a number in lower case, with `fill` before it up to `width` characters.
inline void append(std::string& text, unsigned int number, std::size_t width = 1, char fill = ' ') {
    char digits[sizeof number * 2];
    std::size_t start = sizeof digits;
    do {
        digits[--start] = "0123456789abcdef"[number & 0xf];
        number >>= 4;
    } while (number != 0);
    const std::size_t length = sizeof digits - start;
    text.append(width > length ? width - length : 0, fill).append(digits + start, length);
}

}  // namespace ORVLib::Gui::Hex
