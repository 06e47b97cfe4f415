#include "gui/Button.h"

#include <iostream>

#include "component/Attributes.h"

namespace ORVLib::Gui {

void Button::printHTML() const {
    printInputStart("button", getName(), getValue());
    printEvent("onClick", m_onClick);
    if (m_disabled) {
        std::cout << " disabled";
    }
    std::cout << '>';
}

bool Button::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
