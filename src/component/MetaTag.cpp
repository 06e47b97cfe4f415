#include "gui/MetaTag.h"

#include <iostream>

namespace ORVLib::Gui {

void MetaTag::printHTML() const {
    const char* const attribute = m_name == "FRAME-ID" ? "name" : "http-equiv";
    std::cout << "<meta " << attribute << "=\"" << m_name << "\" content=\"" << m_content;
    if (!m_url.empty()) {
        std::cout << ";URL=" << m_url;
    }
    std::cout << "\">";
}

bool MetaTag::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
