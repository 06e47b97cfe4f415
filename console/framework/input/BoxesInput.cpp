#include "framework/input/BoxesInput.h"

#include <algorithm>
#include <iostream>

#include "framework/backend/Digits.h"
#include "framework/component/PageText.h"
#include "framework/input/Form.h"
#include "gui/MessageMgr.h"
#include "gui/TextField.h"

using namespace ORVLib::Gui;

namespace Console {

void BoxesInput::setText(const std::string& text) {
    std::size_t begin = 0;
    for (std::size_t i = 0; i < getFieldCount(); ++i) {
        const std::size_t end = std::min(text.find(m_separator, begin), text.size());
        setValue(text.substr(begin, end - begin), i);
        begin = std::min(end + 1, text.size());
    }
}

bool BoxesInput::isError() const {
    return isEmpty() ? !m_allowEmpty : !isGood();
}

bool BoxesInput::isEmpty() const {
    for (std::size_t i = 0; i < getFieldCount(); ++i) {
        if (!getValue(i).empty()) {
            return false;
        }
    }
    return true;
}

std::string BoxesInput::getBoxName(std::size_t box) const {
    return text(TEXT_BOX) + ' ' + std::to_string(box + 1);
}

std::string BoxesInput::boxValue(std::size_t number) const {
    std::string text = inputValue(getValue(number));
    MessageMgr::convertStr(text, "\"", "&quot;");
    return text;
}

void BoxesInput::printBox(std::size_t number, int maxLength) const {
    TextField(fieldName(number), inputValue(getValue(number)), FORM_NAME, maxLength + 1, maxLength)
        .printHTML();
}

void BoxesInput::printBoxes(std::size_t count, int maxLength) const {
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) {
            std::cout << "&nbsp;" << m_separator << '\n';
        }
        printBox(i, maxLength);
    }
}

bool BoxesInput::areDigits(std::size_t most) const {
    for (std::size_t i = 0; i < getFieldCount(); ++i) {
        if (!isDigits(getValue(i)) || getValue(i).size() > most) {
            return false;
        }
    }
    return true;
}

std::string BoxesInput::join(std::size_t digits) const {
    std::string text;
    if (isEmpty()) {
        return text;
    }
    for (std::size_t i = 0; i < getFieldCount(); ++i) {
        const std::string number = withoutLeadingZeros(getValue(i));
        text.append(text.empty() ? 0 : 1, m_separator);
        text.append(digits - std::min(digits, number.size()), '0');
        text += number;
    }
    return text;
}

}  // namespace Console
