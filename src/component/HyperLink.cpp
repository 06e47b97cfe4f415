#include "gui/HyperLink.h"

#include "base/Output.h"

namespace ORVLib::Gui {

void HyperLink::printHTML() const {
    Output output;
    output << "<a ";
    if (!m_cssClass.empty()) {
        output << "class=\"" << m_cssClass << "\" ";
    }
    if (m_scriptMode) {
        output << "href=\"#\" onClick='" << m_script << ";blur()'>";
    } else {
        output << "href=\"" << m_url << "\" target=\"" << m_target << "\" onClick='blur()'>";
    }
    if (m_content) {
        output.print();
        m_content->printHTML();
    }
    output << "</a>";
    output.print();
}

bool HyperLink::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
