#include "framework/input/ChoiceInput.h"

#include <algorithm>
#include <iostream>

#include "framework/component/Components.h"
#include "framework/component/PageText.h"
#include "framework/input/Form.h"
#include "gui/RadioButton.h"
#include "gui/SelectMenu.h"

using namespace ORVLib::Gui;

namespace Console {

void ChoiceInput::addOption(const std::string& value, const std::string& label) {
    m_options.push_back({value, label});
}

void ChoiceInput::addOptions(const Vocabulary& words) {
    for (const Word& word : words) {
        addOption(word.word, text(word.text));
    }
}

const ChoiceInput::Option* ChoiceInput::chosen() const {
    const auto found =
        std::find_if(m_options.begin(), m_options.end(),
                     [this](const Option& option) { return option.value == getValue(); });
    return found != m_options.end() ? &*found : nullptr;
}

std::string ChoiceInput::getShownText() const {
    const Option* const option = chosen();
    return option != nullptr ? option->label : getValue();
}

std::string ChoiceInput::getChoices() const {
    std::string choices;
    for (const Option& option : m_options) {
        choices += (choices.empty() ? "" : " / ") + option.label;
    }
    return choices;
}

void MenuInput::print() const {
    constexpr int NONE = -1;
    SelectMenu menu(getName(), "", FORM_NAME, NONE);
    if (chosen() == nullptr) {
        // Otherwise the browser would choose the first option without the user.
        menu.add("", "", true);
    }
    for (const Option& option : options()) {
        menu.add(option.value, htmlText(option.label), &option == chosen());
    }
    menu.printHTML();
}

void RadioInput::print() const {
    RadioButton buttons(getName(), "", FORM_NAME);
    std::size_t number = 0;
    for (const Option& option : options()) {
        buttons.add(option.value, htmlText(option.label), numberedName(number++),
                    &option == chosen(), false);
    }
    buttons.printHTML();
}

void ChosenInput::print() const {
    std::cout << "<span class=\"value\">";
    TextString(getShownText()).printHTML();
    std::cout << "</span>";
    printCarried();
}

}  // namespace Console
