#include "gui/PasswordField.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void PasswordField::printHTML() const {
    if (isEditable(m_displayMode)) {
        output << "<input type=\"password\"";
        printSizes(m_size, m_maxLength);
        output << " name=\"" << getName() << "\" value=\"\">";
    } else if (getValue().empty()) {
        output << "&nbsp;";
    } else {
        output << std::string(getValue().size(), '*');
    }
}

bool PasswordField::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
