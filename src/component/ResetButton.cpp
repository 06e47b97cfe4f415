#include "gui/ResetButton.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void ResetButton::printHTML() const {
    printInputStart("reset", getName(), getValue());
    output << '>';
}

bool ResetButton::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
