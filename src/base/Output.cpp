#include "base/Output.h"

#include <charconv>
#include <cstring>
#include <ext/stdio_sync_filebuf.h>
#include <iostream>
#include <typeinfo>

namespace ORVLib::Gui {

namespace {

void writeText(std::string_view text) {
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
}

/// True when std::cout writes to C's standard output.
bool hasStandardBuffer() {
    const std::streambuf* const buffer = std::cout.rdbuf();
    return buffer != nullptr && typeid(*buffer) == typeid(__gnu_cxx::stdio_sync_filebuf<char>);
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
    if (!hasStandardBuffer()) {
        print();
        std::cout.flush();
    }
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
