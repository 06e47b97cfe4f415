#include "base/Output.h"

#include <charconv>
#include <iostream>

namespace ORVLib::Gui {

const Output& Output::operator<<(std::string_view text) const {
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
    return *this;
}

const Output& Output::operator<<(char character) const {
    std::cout.put(character);
    return *this;
}

const Output& Output::operator<<(int number) const {
    char digits[sizeof "-2147483648"];
    const std::to_chars_result written = std::to_chars(digits, digits + sizeof digits, number);
    return *this << std::string_view(digits, static_cast<std::size_t>(written.ptr - digits));
}

void Output::endLine() const {
    std::cout << std::endl;
}

bool Output::flush() const {
    return !std::cout.flush().fail();
}

}  // namespace ORVLib::Gui
