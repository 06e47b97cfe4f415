#include "gui/HiddenField.h"

#include "component/Attributes.h"
#include "message/Output.h"

namespace ORVLib::Gui {

void HiddenField::printHTML() const {
    printInputStart("hidden", getName(), quoteEscaped(getValue()));
    output << '>';
}

bool HiddenField::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
