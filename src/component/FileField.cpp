#include "gui/FileField.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void FileField::printHTML() const {
    if (isEditable(m_displayMode)) {
        printInputs();
        return;
    }
    output << (getValue().empty() ? "&nbsp;" : getValue());
    if (isCarried(m_displayMode)) {
        output.endLine();
        printInputStart("hidden", getName(), getValue());
        output << '>';
    }
}

void FileField::printInputs() const {
    const std::string& name = getName();
    const std::string hidden = "browse_" + name;
    output << "<input type=\"file\" name=\"" << hidden << "\" style=\"display: none;\">\n"
           << "<input type=\"text\" readonly size=\"" << m_size << "\" name=\"" << name
           << "\" value=\"" << getValue() << "\">\n"
           << "<input type=\"button\" onClick=\"" << hidden << ".click();" << name
           << ".value=" << hidden << ".value;\" value=\"" << m_buttonLabel << "\">";
}

bool FileField::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
