#include "gui/EmailAddressField.h"

#include "component/Validation.h"

namespace ORVLib::Gui {

bool EmailAddressField::isError() const {
    const std::string& value = getValue();
    if (value.empty()) {
        return !m_allowEmpty;
    }
    return startsOrEndsWith(value, '.') || isLongerThan(value, getMaxLength()) ||
           value.find('@') == std::string::npos;
}

}  // namespace ORVLib::Gui
