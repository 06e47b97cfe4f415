#include "gui/Cookie.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "base/Output.h"

namespace ORVLib::Gui {

namespace {

constexpr char PREFIX[] = "sid=";
constexpr std::size_t PREFIX_LENGTH = sizeof PREFIX - 1;

bool endsLine(char character) {
    return character == '\r' || character == '\n' || character == '\0';
}

}  // namespace

Cookie::Cookie() {
    const char* const header = std::getenv("HTTP_COOKIE");
    if (header == nullptr || std::strncmp(header, PREFIX, PREFIX_LENGTH) != 0) {
        m_error = true;
    } else {
        m_sessionId = header + PREFIX_LENGTH;
    }
}

void Cookie::printHTML() const {
    Output output;
    const auto end = std::find_if(m_sessionId.begin(), m_sessionId.end(), endsLine);
    output << "Set-Cookie: sid=" << std::string(m_sessionId.begin(), end);
    if (m_expired) {
        output << "; path=/; expires=Thu,01-Jan-1970 09:00:00 GMT";
    }
    output.endLine();
    output.print();
}

bool Cookie::isError() const {
    return m_error;
}

}  // namespace ORVLib::Gui
