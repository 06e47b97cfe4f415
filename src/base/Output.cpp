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
    constexpr std::size_t LONGEST = sizeof "-2147483648";
    if (sizeof m_pieces - m_size < LONGEST) {
        print();
    }
    char* const start = m_pieces + m_size;
    m_size += static_cast<std::size_t>(std::to_chars(start, start + LONGEST, number).ptr - start);
    return *this;
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
