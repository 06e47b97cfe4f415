#include "base/Output.h"

#include <charconv>
#include <cstring>
#include <iostream>

namespace ORVLib::Gui {

namespace {

void writeText(std::string_view text) {
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace

Output& Output::operator<<(std::string_view text) {
    if (text.size() > sizeof m_pieces - m_size) {
        print();
        if (text.size() > sizeof m_pieces) {
            writeText(text);
            return *this;
        }
    }
    std::memcpy(m_pieces + m_size, text.data(), text.size());
    m_size += text.size();
    return *this;
}

Output& Output::operator<<(int number) {
    char digits[sizeof "-2147483648"];
    const std::to_chars_result written = std::to_chars(digits, digits + sizeof digits, number);
    return *this << std::string_view(digits, static_cast<std::size_t>(written.ptr - digits));
}

void Output::endLine() {
    *this << '\n';
    print();
    std::cout.flush();
}

void Output::print() {
    if (m_size > 0) {
        writeText({m_pieces, m_size});
        m_size = 0;
    }
}

bool Output::flush() {
    return !std::cout.flush().fail();
}

}  // namespace ORVLib::Gui
