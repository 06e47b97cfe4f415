#include "gui/HiddenField.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void HiddenField::printHTML() const {
    printInputStart("hidden", getName(), quoteEscaped(getValue()));
    output << '>';
}

bool HiddenField::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
