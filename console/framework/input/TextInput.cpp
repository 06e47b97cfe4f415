#include "framework/input/TextInput.h"

#include <algorithm>

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
    const Field field = makeField(getValue());
    return field->isError() || (field->isCheckCharacters() && hasCharacterReference(getValue()));
}

void TextInput::print() const {
    makeField(inputValue(getValue()))->printHTML();
}

TextInput::Field TextInput::makeField(const std::string& value) const {
    return std::make_unique<TextField>(getName(), value, FORM_NAME, m_width, m_maxLength);
}

AsciiInput::AsciiInput(const std::string& name, int maxLength, bool allowEmpty, bool allowBlank)
    : TextInput(name, std::min(maxLength, WIDEST_BOX), maxLength),
      m_allowEmpty(allowEmpty),
      m_allowBlank(allowBlank) {}

TextInput::Field AsciiInput::makeField(const std::string& value) const {
    constexpr bool CHECK_CHARACTERS = true;
    return std::make_unique<TextField>(getName(), value, FORM_NAME, getWidth(), getMaxLength(),
                                       nullptr, false, CHECK_CHARACTERS, m_allowEmpty,
                                       m_allowBlank);
}

}  // namespace Console
