#include "framework/input/PortInput.h"

#include "framework/backend/Digits.h"
#include "framework/input/Form.h"
#include "gui/PortNumberField.h"

using namespace ORVLib::Gui;

namespace Console {

PortInput::PortInput(const std::string& name, bool allowEmpty)
    : TextInput(std::make_unique<PortNumberField>(name, "", FORM_NAME, 6, 5, nullptr, true,
                                                  allowEmpty)) {}

std::string PortInput::getText() const {
    const std::string typed = TextInput::getText();
    return typed.empty() ? typed : withoutLeadingZeros(typed);
}

}  // namespace Console
