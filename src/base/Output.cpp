#include "base/Output.h"

#include <charconv>
#include <cstring>
#include <iostream>

namespace ORVLib::Gui {

namespace {

void writeText(std::string_view text) {
    std::cout.write(text.data(), static_cast<std::streamsize>(text.size()));
}

/// The buffer that std::cout has when the program starts, which is that of C's stdout.
// NOLINTNEXTLINE(cppcoreguidelines-interfaces-global-init): <iostream> constructs std::cout first
const std::streambuf* const standardBuffer = std::cout.rdbuf();

int openPages = 0;
bool isFlushDue = false;

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
    if (openPages > 0 && std::cout.rdbuf() == standardBuffer) {
        isFlushDue = true;
        return;
    }
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

Output::Page::Page() {
    ++openPages;
}

Output::Page::~Page() {
    --openPages;
}

void Output::Page::end() const {
    if (openPages == 1 && isFlushDue) {
        isFlushDue = false;
        std::cout.flush();
    }
}

}  // namespace ORVLib::Gui
