#include "gui/ResetButton.h"

#include <iostream>

#include "component/Attributes.h"

namespace ORVLib::Gui {

void ResetButton::printHTML() const {
    printInputStart("reset", getName(), getValue());
    std::cout << '>';
}

bool ResetButton::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
