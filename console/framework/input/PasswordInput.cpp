#include "framework/input/PasswordInput.h"

#include "framework/input/Form.h"
#include "gui/PasswordField.h"

using namespace ORVLib::Gui;

namespace Console {

bool PasswordInput::isError() const {
    return getValue().size() > static_cast<std::size_t>(m_maxLength);
}

void PasswordInput::print() const {
    PasswordField(getName(), "", FORM_NAME, m_maxLength, m_maxLength).printHTML();
}

}  // namespace Console
