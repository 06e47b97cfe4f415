#include "gui/HiddenField.h"

#include <iostream>

#include "component/Attributes.h"

namespace ORVLib::Gui {

void HiddenField::printHTML() const {
    printInputStart("hidden", getName(), quoteEscaped(getValue()));
    std::cout << '>';
}

bool HiddenField::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
