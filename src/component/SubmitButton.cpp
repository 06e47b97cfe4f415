#include "gui/SubmitButton.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void SubmitButton::printHTML() const {
    Output output;
    printInputStart(output, "submit", getName(), getValue());
    printEvent(output, "onClick", m_onClick);
    output << '>';
    output.print();
}

bool SubmitButton::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
