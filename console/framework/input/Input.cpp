#include "framework/input/Input.h"

#include <iostream>

#include "framework/input/Form.h"
#include "gui/HiddenField.h"
#include "gui/TextString.h"

using namespace ORVLib::Gui;

namespace Console {

void Input::submit(const Fields& fields) {
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        m_values[i] = fieldOf(fields, fieldName(i));
    }
}

void Input::printCarried() const {
    for (std::size_t i = 0; i < m_values.size(); ++i) {
        printHidden(fieldName(i), m_values[i]);
    }
}

void Input::printHidden(const std::string& name, const std::string& value) {
    HiddenField(name, inputValue(value)).printHTML();
}

void ShownInput::print() const {
    std::cout << "<span class=\"value\">";
    TextString(m_text).printHTML();
    std::cout << "</span>";
}

}  // namespace Console
