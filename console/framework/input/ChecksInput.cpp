#include "framework/input/ChecksInput.h"

#include <iostream>

#include "framework/component/Components.h"
#include "gui/CheckBox.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char CHECKED[] = "1";

}  // namespace

void ChecksInput::addBox(const std::string& label) {
    m_labels.push_back(label);
    addField();
}

bool ChecksInput::isChecked(std::size_t number) const {
    return getValue(number) == CHECKED;
}

void ChecksInput::setText(const std::string& text) {
    for (std::size_t i = 0; i < getFieldCount(); ++i) {
        setValue(i < text.size() && text[i] == *CHECKED ? CHECKED : "", i);
    }
}

std::string ChecksInput::getText() const {
    std::string text;
    for (std::size_t i = 0; i < getFieldCount(); ++i) {
        text += isChecked(i) ? '1' : '0';
    }
    return text;
}

void ChecksInput::print() const {
    for (std::size_t i = 0; i < getFieldCount(); ++i) {
        const std::string name = fieldName(i);
        // A click on the label checks the box too.
        const std::string label =
            "<label for=\"" + name + "\">" + htmlText(m_labels[i]) + "</label>";
        CheckBox box(name);
        box.add(name, CHECKED, label, name, isChecked(i));
        // A line does not wrap between a box and its label.
        std::cout << "<span class=\"choice\">";
        box.printHTML();
        std::cout << "</span>\n";
    }
}

std::string ChecksInput::getShownText() const {
    std::string text;
    for (std::size_t i = 0; i < getFieldCount(); ++i) {
        if (isChecked(i)) {
            text += (text.empty() ? "" : ", ") + m_labels[i];
        }
    }
    return text.empty() ? "-" : text;
}

void ChecksInput::printCarried() const {
    for (std::size_t i = 0; i < getFieldCount(); ++i) {
        if (isChecked(i)) {
            printHidden(fieldName(i), CHECKED);
        }
    }
}

FlagInput::FlagInput(const std::string& name, const std::string& label, std::string otherwise)
    : ChecksInput(name), m_otherwise(std::move(otherwise)), m_choices(label + " / " + m_otherwise) {
    addBox(label);
}

std::string FlagInput::getShownText() const {
    return isEmpty() ? m_otherwise : ChecksInput::getShownText();
}

}  // namespace Console
