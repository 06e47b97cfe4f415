#include "gui/PasswordField.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void PasswordField::printHTML() const {
    Output output;
    if (isEditable(m_displayMode)) {
        output << "<input type=\"password\"";
        printSizes(output, m_size, m_maxLength);
        output << " name=\"" << getName() << "\" value=\"\">";
    } else if (getValue().empty()) {
        output << "&nbsp;";
    } else {
        output << std::string(getValue().size(), '*');
    }
    output.print();
}

bool PasswordField::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
