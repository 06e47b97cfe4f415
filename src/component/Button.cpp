#include "gui/Button.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void Button::printHTML() const {
    printInputStart("button", getName(), getValue());
    printEvent("onClick", m_onClick);
    if (m_disabled) {
        output << " disabled";
    }
    output << '>';
}

bool Button::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
