#include "framework/input/PortInput.h"

#include "framework/backend/Digits.h"
#include "gui/PortNumberField.h"

using namespace ORVLib::Gui;

namespace Console {

std::string PortInput::getText() const {
    return getValue().empty() ? "" : withoutLeadingZeros(getValue());
}

TextInput::Field PortInput::makeField(const std::string& value) const {
    constexpr bool ALLOW_WELL_KNOWN = true;
    return std::make_unique<PortNumberField>(getName(), value, FORM_NAME, getWidth(),
                                             getMaxLength(), nullptr, ALLOW_WELL_KNOWN,
                                             m_allowEmpty);
}

}  // namespace Console
