#include "gui/TextString.h"

#include "base/Output.h"
#include "message/Escaping.h"

namespace ORVLib::Gui {

const char TextString::colorStyle[6][16] = {
    "err_string",      // ERROR_COLOUR
    "warning_string",  // WARNING_COLOUR
    "degrade_string",  // DEGRADE_COLOUR
    "normal_green",    // NORMAL_COLOUR
    "white_string",    // WHITE_COLOUR
    "mainte_string",   // MAINTENANCE_COLOUR
};

void TextString::printHTML() const {
    Output output;
    const bool hasColour = m_colour >= ERROR_COLOUR && m_colour <= MAINTENANCE_COLOUR;
    if (hasColour) {
        output << "<font class=\"" << colorStyle[m_colour] << "\">";
    }
    const std::string_view text(m_text.c_str());
    if (m_raw) {
        output << text;
    } else {
        printEscaped(output, text);
    }
    if (hasColour) {
        output << "</font>";
    }
    output.print();
}

bool TextString::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
