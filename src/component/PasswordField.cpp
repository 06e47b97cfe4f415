#include "gui/PasswordField.h"

#include <iostream>

#include "component/Attributes.h"

namespace ORVLib::Gui {

void PasswordField::printHTML() const {
    if (isEditable(m_displayMode)) {
        std::cout << "<input type=\"password\"";
        printSizes(m_size, m_maxLength);
        std::cout << " name=\"" << getName() << "\" value=\"\">";
    } else if (getValue().empty()) {
        std::cout << "&nbsp;";
    } else {
        std::cout << std::string(getValue().size(), '*');
    }
}

bool PasswordField::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
