#include "gui/FileField.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void FileField::printHTML() const {
    if (isEditable(m_displayMode)) {
        printInputs();
        return;
    }
    Output output;
    output << (getValue().empty() ? "&nbsp;" : getValue());
    if (isCarried(m_displayMode)) {
        output.endLine();
        printInputStart(output, "hidden", getName(), getValue());
        output << '>';
    }
    output.print();
}

void FileField::printInputs() const {
    Output output;
    const std::string& name = getName();
    const std::string hidden = "browse_" + name;
    output << "<input type=\"file\" name=\"" << hidden << "\" style=\"display: none;\">\n"
           << "<input type=\"text\" readonly size=\"" << m_size << "\" name=\"" << name
           << "\" value=\"" << getValue() << "\">\n"
           << "<input type=\"button\" onClick=\"" << hidden << ".click();" << name
           << ".value=" << hidden << ".value;\" value=\"" << m_buttonLabel << "\">";
    output.print();
}

bool FileField::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
