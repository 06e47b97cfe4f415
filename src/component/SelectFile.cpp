#include "gui/SelectFile.h"

#include <iostream>

#include "component/Attributes.h"

namespace ORVLib::Gui {

void SelectFile::printHTML() const {
    std::cout << "<input type=\"file\" name=\"" << getName() << "\" size=\"" << m_size
              << "\" value=\"\"" << (isEditable(m_displayMode) ? ">\n" : "disable >\n");
}

bool SelectFile::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
