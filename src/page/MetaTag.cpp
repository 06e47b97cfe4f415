#include "gui/MetaTag.h"

#include "base/Output.h"

namespace ORVLib::Gui {

void MetaTag::printHTML() const {
    Output output;
    const char* const attribute = m_name == "FRAME-ID" ? "name" : "http-equiv";
    output << "<meta " << attribute << "=\"" << m_name << "\" content=\"" << m_content;
    if (!m_url.empty()) {
        output << ";URL=" << m_url;
    }
    output << "\">";
    output.print();
}

bool MetaTag::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
