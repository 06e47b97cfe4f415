#include "gui/HiddenField.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void HiddenField::printHTML() const {
    Output output;
    output << "<input type=\"hidden\" name=\"" << getName() << "\" value=\"";
    printQuoteEscaped(output, getValue());
    output << "\">";
    output.print();
}

bool HiddenField::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
