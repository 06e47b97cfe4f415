#include "gui/PortNumberField.h"

#include "base/Numbers.h"
#include "component/Validation.h"

namespace ORVLib::Gui {

bool PortNumberField::isError() const {
    const std::string& value = getValue();
    if (value.empty()) {
        return !m_allowEmpty;
    }
    if (isLongerThan(value, getMaxLength()) || !isAllDigits(value)) {
        return true;
    }
    const int port = Numbers::readInt(value.c_str());
    const int lastRefused = m_allowWellKnownPorts ? 0 : LAST_WELL_KNOWN_PORT;
    return port <= lastRefused || port > m_maximumPort;
}

}  // namespace ORVLib::Gui
