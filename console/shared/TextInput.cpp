#include "shared/TextInput.h"

#include <algorithm>

#include "gui/PasswordField.h"
#include "gui/PortNumberField.h"
#include "shared/Digits.h"
#include "shared/Form.h"
#include "shared/OuterPage.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int WIDEST_BOX = 40;  // in characters; a longer text scrolls in it

}  // namespace

bool hasCharacterReference(const std::string& text) {
    constexpr char START[] = "&#";
    std::size_t at = text.find(START);
    while (at != std::string::npos) {
        const std::size_t digits = at + 2;
        const std::size_t end = text.find_first_not_of("0123456789", digits);
        if (end != std::string::npos && end > digits && text[end] == ';') {
            return true;
        }
        at = text.find(START, digits);
    }
    return false;
}

bool TextInput::isError() const {
    return m_field->isError() ||
           (m_field->isCheckCharacters() && hasCharacterReference(m_field->getValue()));
}

void TextInput::submit(const FormInfo& form) {
    setText(fieldOf(form, getName()));
}

void TextInput::print() const {
    const std::string typed = m_field->getValue();
    m_field->setValue(inputValue(typed));
    m_field->printHTML();
    m_field->setValue(typed);
}

void TextInput::printCarried() const {
    printHidden(getName(), m_field->getValue());
}

AsciiInput::AsciiInput(const std::string& name, int maxLength, bool allowEmpty)
    : TextInput(std::make_unique<TextField>(name, "", FORM_NAME, std::min(maxLength, WIDEST_BOX),
                                            maxLength, nullptr, false, true, allowEmpty, true)) {}

NumberInput::NumberInput(const std::string& name, int lowest, int highest)
    : TextInput(std::make_unique<TextField>(name, "", FORM_NAME,
                                            static_cast<int>(std::to_string(highest).size()) + 1,
                                            static_cast<int>(std::to_string(highest).size()))),
      m_lowest(lowest),
      m_highest(highest) {}

std::string NumberInput::getText() const {
    return withoutLeadingZeros(TextInput::getText());
}

bool NumberInput::isError() const {
    if (TextInput::isError() || !isDigits(TextInput::getText())) {
        return true;
    }
    constexpr std::size_t MOST_DIGITS = 9;
    const int number = readDigits(getText(), MOST_DIGITS);
    return number < m_lowest || number > m_highest;
}

PortInput::PortInput(const std::string& name, bool allowEmpty)
    : TextInput(std::make_unique<PortNumberField>(name, "", FORM_NAME, 6, 5, nullptr, true,
                                                  allowEmpty)) {}

std::string PortInput::getText() const {
    const std::string typed = TextInput::getText();
    return typed.empty() ? typed : withoutLeadingZeros(typed);
}

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
