#include "gui/Button.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void Button::printHTML() const {
    Output output;
    printInputStart(output, "button", getName(), getValue());
    printEvent(output, "onClick", m_onClick);
    if (m_disabled) {
        output << " disabled";
    }
    output << '>';
    output.print();
}

bool Button::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
