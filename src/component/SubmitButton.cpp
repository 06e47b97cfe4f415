#include "gui/SubmitButton.h"

#include "component/Attributes.h"
#include "message/Output.h"

namespace ORVLib::Gui {

void SubmitButton::printHTML() const {
    printInputStart("submit", getName(), getValue());
    printEvent("onClick", m_onClick);
    output << '>';
}

bool SubmitButton::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
