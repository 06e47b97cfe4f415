#include "gui/SubmitButton.h"

#include <iostream>

#include "component/Attributes.h"

namespace ORVLib::Gui {

void SubmitButton::printHTML() const {
    printInputStart("submit", getName(), getValue());
    printEvent("onClick", m_onClick);
    std::cout << '>';
}

bool SubmitButton::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
