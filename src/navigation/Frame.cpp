#include "gui/Frame.h"

#include "base/Output.h"

namespace ORVLib::Gui {

void Frame::printHTML() const {
    Output output;
    output << "<frame name=\"" << m_name << "\" src=\"" << m_src << "\" "
           << (m_scrolling ? "" : "scrolling=\"no\" ")
           << (m_border ? "frameborder=\"yes\"" : "frameborder=\"no\"")
           << (m_resize ? ">" : " noresize>");
    output.print();
}

bool Frame::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
