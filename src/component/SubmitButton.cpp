#include "gui/SubmitButton.h"

#include "base/Output.h"
#include "component/Attributes.h"

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
