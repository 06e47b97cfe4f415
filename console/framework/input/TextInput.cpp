#include "framework/input/TextInput.h"

#include <algorithm>

#include "framework/input/Form.h"

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

}  // namespace Console
