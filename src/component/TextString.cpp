#include "gui/TextString.h"

#include "base/Output.h"
#include "gui/MessageMgr.h"

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
    std::string text = m_text.substr(0, m_text.find('\0'));
    if (!m_raw) {
        MessageMgr::convertHTML(text);
    }
    if (m_colour < ERROR_COLOUR || m_colour > MAINTENANCE_COLOUR) {
        output << text;
    } else {
        output << "<font class=\"" << colorStyle[m_colour] << "\">" << text << "</font>";
    }
    output.print();
}

bool TextString::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
