#include "gui/HyperLink.h"

#include <iostream>

namespace ORVLib::Gui {

void HyperLink::printHTML() const {
    std::cout << "<a ";
    if (!m_cssClass.empty()) {
        std::cout << "class=\"" << m_cssClass << "\" ";
    }
    if (m_scriptMode) {
        std::cout << "href=\"#\" onClick='" << m_script << ";blur()'>";
    } else {
        std::cout << "href=\"" << m_url << "\" target=\"" << m_target << "\" onClick='blur()'>";
    }
    if (m_content) {
        m_content->printHTML();
    }
    std::cout << "</a>";
}

bool HyperLink::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
