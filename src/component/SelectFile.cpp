#include "gui/SelectFile.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void SelectFile::printHTML() const {
    Output output;
    output << "<input type=\"file\" name=\"" << getName() << "\" size=\"" << m_size
           << "\" value=\"\"" << (isEditable(m_displayMode) ? ">\n" : "disable >\n");
    output.print();
}

bool SelectFile::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
