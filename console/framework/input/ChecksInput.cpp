#include "framework/input/ChecksInput.h"

#include <iostream>

#include "framework/component/Components.h"
#include "framework/input/Form.h"
#include "gui/CheckBox.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char CHECKED[] = "1";

}  // namespace

void ChecksInput::addBox(const std::string& label) {
    m_boxes.push_back({label});
}

void ChecksInput::setText(const std::string& text) {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        m_boxes[i].checked = i < text.size() && text[i] == *CHECKED;
    }
}

std::string ChecksInput::getText() const {
    std::string text;
    for (const Box& box : m_boxes) {
        text += box.checked ? '1' : '0';
    }
    return text;
}

void ChecksInput::submit(const FormInfo& form) {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        m_boxes[i].checked = fieldOf(form, fieldName(i)) == CHECKED;
    }
}

void ChecksInput::print() const {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        const std::string name = fieldName(i);
        // A click on the label checks the box too.
        const std::string label =
            "<label for=\"" + name + "\">" + htmlText(m_boxes[i].label) + "</label>";
        CheckBox box(name);
        box.add(name, CHECKED, label, name, m_boxes[i].checked);
        // No line ends between a box and its label.
        std::cout << "<span class=\"choice\">";
        box.printHTML();
        std::cout << "</span>\n";
    }
}

std::string ChecksInput::getShownText() const {
    std::string text;
    for (const Box& box : m_boxes) {
        if (box.checked) {
            text += (text.empty() ? "" : ", ") + box.label;
        }
    }
    return text.empty() ? "-" : text;
}

void ChecksInput::printCarried() const {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        if (m_boxes[i].checked) {
            printHidden(fieldName(i), CHECKED);
        }
    }
}

FlagInput::FlagInput(const std::string& name, const std::string& label, std::string otherwise)
    : ChecksInput(name), m_otherwise(std::move(otherwise)) {
    addBox(label);
}

std::string FlagInput::getShownText() const {
    return isEmpty() ? m_otherwise : ChecksInput::getShownText();
}

}  // namespace Console
