#include "framework/input/BoxesInput.h"

#include <algorithm>
#include <iostream>

#include "framework/backend/Digits.h"
#include "framework/input/Form.h"
#include "gui/MessageMgr.h"
#include "gui/TextField.h"

using namespace ORVLib::Gui;

namespace Console {

void BoxesInput::setText(const std::string& text) {
    std::size_t begin = 0;
    for (std::string& box : m_boxes) {
        const std::size_t end = std::min(text.find(m_separator, begin), text.size());
        box = text.substr(begin, end - begin);
        begin = std::min(end + 1, text.size());
    }
}

void BoxesInput::submit(const FormInfo& form) {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        m_boxes[i] = fieldOf(form, fieldName(i));
    }
}

bool BoxesInput::isError() const {
    return isEmpty() ? !m_allowEmpty : !isGood();
}

bool BoxesInput::isEmpty() const {
    return std::all_of(m_boxes.begin(), m_boxes.end(),
                       [](const std::string& box) { return box.empty(); });
}

void BoxesInput::printCarried() const {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        printHidden(fieldName(i), m_boxes[i]);
    }
}

std::string BoxesInput::boxValue(std::size_t number) const {
    std::string text = inputValue(box(number));
    MessageMgr::convertStr(text, "\"", "&quot;");
    return text;
}

void BoxesInput::printBox(std::size_t number, int maxLength) const {
    TextField(fieldName(number), inputValue(box(number)), FORM_NAME, maxLength + 1, maxLength)
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
    return std::all_of(m_boxes.begin(), m_boxes.end(), [most](const std::string& box) {
        return isDigits(box) && box.size() <= most;
    });
}

std::string BoxesInput::join(std::size_t digits) const {
    std::string text;
    if (isEmpty()) {
        return text;
    }
    for (const std::string& box : m_boxes) {
        const std::string number = withoutLeadingZeros(box);
        text.append(text.empty() ? 0 : 1, m_separator);
        text.append(digits - std::min(digits, number.size()), '0');
        text += number;
    }
    return text;
}

}  // namespace Console
