#include "framework/input/PasswordInput.h"

#include "framework/input/Form.h"
#include "gui/PasswordField.h"

using namespace ORVLib::Gui;

namespace Console {

PasswordInput::PasswordInput(const std::string& name, int maxLength)
    : Input(name), m_maxLength(maxLength) {}

void PasswordInput::submit(const FormInfo& form) {
    m_password = fieldOf(form, getName());
}

bool PasswordInput::isError() const {
    return m_password.size() > static_cast<std::size_t>(m_maxLength);
}

void PasswordInput::print() const {
    PasswordField(getName(), "", FORM_NAME, m_maxLength, m_maxLength).printHTML();
}

}  // namespace Console
