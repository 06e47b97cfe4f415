#pragma once

/// Hexadecimal digits: written in upper case, read in either.
namespace ORVLib::Gui::Hex {

constexpr char DIGITS[] = "0123456789ABCDEF";

/// The value of a digit, or -1 for any other character.
constexpr int valueOf(char character) {
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    const int lower = character | 0x20;
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

}  // namespace ORVLib::Gui::Hex
