#include "gui/ResetButton.h"

#include "base/Output.h"
#include "component/Attributes.h"

namespace ORVLib::Gui {

void ResetButton::printHTML() const {
    Output output;
    printInputStart(output, "reset", getName(), getValue());
    output << '>';
    output.print();
}

bool ResetButton::isError() const {
    return false;
}

}  // namespace ORVLib::Gui
