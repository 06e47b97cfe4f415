#include "gui/Button.h"

#include "component/Attributes.h"
#include "message/Output.h"

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
