#include "framework/input/InputList.h"

#include <algorithm>
#include <iostream>

#include "framework/component/AddedAttributes.h"
#include "framework/component/Components.h"
#include "framework/component/PageText.h"
#include "gui/TextString.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

void printHeading(const std::string& heading) {
    if (!heading.empty()) {
        std::cout << "<h2>";
        makeSentence(heading)->printHTML();
        std::cout << "</h2>\n";
    }
}

/// The words for users who hear the page are not visible: the arrow says the same.
class Change : public HTMLComponent {
public:
    Change(std::string before, std::string after)
        : m_before(std::move(before)), m_after(std::move(after)) {}

    void printHTML() const override {
        print("del", TEXT_BEFORE, m_before);
        std::cout << " <span aria-hidden=\"true\">&rarr;</span> ";
        print("ins", TEXT_AFTER, m_after);
    }
    bool isError() const override { return false; }

private:
    static void print(const char* tag, Text word, const std::string& value) {
        std::cout << '<' << tag << "><span class=\"spoken\">" << sentenceText(text(word))
                  << " </span>";
        makeText(value)->printHTML();
        std::cout << "</" << tag << '>';
    }

    std::string m_before;
    std::string m_after;
};

}  // namespace

void InputList::addEntry(const std::string& label, Text hint, std::unique_ptr<Input> input) {
    m_entries.push_back({m_nextHeading, label, hint, std::move(input), hint});
    m_nextHeading.clear();
}

void InputList::submit(const Fields& fields) {
    for (Entry& entry : m_entries) {
        entry.input->submit(fields);
    }
}

void InputList::check(const std::function<bool(const Input&)>& isNeeded) {
    for (Entry& entry : m_entries) {
        entry.needed = isNeeded(*entry.input);
        entry.wrong = entry.needed && entry.input->isError();
    }
}

void InputList::mark(const Input& input) {
    for (Entry& entry : m_entries) {
        entry.wrong |= entry.input.get() == &input;
    }
}

void InputList::mark(const Input& input, Text hint) {
    mark(input);
    for (Entry& entry : m_entries) {
        if (entry.input.get() == &input) {
            entry.problem = hint;
        }
    }
}

bool InputList::isAnyMarked() const {
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [](const Entry& entry) { return entry.wrong; });
}

std::vector<Input*> InputList::getInputs() const {
    std::vector<Input*> inputs;
    for (const Entry& entry : m_entries) {
        inputs.push_back(entry.input.get());
    }
    return inputs;
}

void InputList::describe(Help& help) const {
    for (const Entry& entry : m_entries) {
        if (entry.input->isEditable()) {
            const std::string choices = entry.input->getChoices();
            help.addInput(entry.label, choices.empty() ? text(entry.hint) : choices);
        }
    }
}

void InputList::printInputs() const {
    for (const Entry& entry : m_entries) {
        printHeading(entry.heading);
        printInput(entry);
    }
}

// A label belongs to one input; a group of boxes or buttons is a field set with a legend. A wrong
// input names the element of its hint, for users who hear the page.
void InputList::printInput(const Entry& entry) {
    const bool isGroup = entry.input->isGroup();
    std::cout << (isGroup ? "<fieldset class=\"entry" : "<p class=\"entry")
              << (entry.wrong ? " wrong\">" : "\">")
              << (isGroup ? "<legend class=\"label\">" : "<label><span class=\"label\">");
    makeSentence(entry.label)->printHTML();
    std::cout << (isGroup ? "</legend> " : "</span> ");
    const std::string hintId = entry.input->getName() + "_hint";
    printWithAttributes([&entry] { entry.input->print(); },
                        [&](std::size_t box) { return attributesOf(entry, box, hintId); });
    std::cout << (isGroup ? "" : "</label>");
    if (entry.wrong) {
        std::cout << " <span" << attribute("id", hintId) << '>';
        makeSentence(text(entry.problem), TextString::ERROR_COLOUR)->printHTML();
        std::cout << "</span>";
    }
    std::cout << (isGroup ? "</fieldset>\n" : "</p>\n");
}

std::string InputList::attributesOf(const Entry& entry, std::size_t box,
                                    const std::string& hintId) {
    const std::string boxName = entry.input->getBoxName(box);
    return (boxName.empty() ? "" : attribute("aria-label", boxName)) +
           (entry.wrong ? attribute("aria-invalid", "true") + attribute("aria-describedby", hintId)
                        : "");
}

void InputList::compareWithPresent() {
    for (Entry& entry : m_entries) {
        entry.present = entry.input->getShownText();
    }
}

bool InputList::isAnyChanged() const {
    return std::any_of(m_entries.begin(), m_entries.end(), isChanged);
}

bool InputList::isChanged(const Entry& entry) {
    if (!entry.needed || !entry.input->isSetting()) {
        return false;
    }
    return entry.input->isSecret()
               ? !entry.input->isEmpty()
               : !entry.present || *entry.present != entry.input->getShownText();
}

// The heading of inputs of which none is shown is left out, too.
void InputList::printValues(bool carried) const {
    std::string heading;
    for (const Entry& entry : m_entries) {
        heading = entry.heading.empty() ? heading : entry.heading;
        if (isChanged(entry) || !entry.input->isEditable()) {
            printHeading(heading);
            heading.clear();
            printValue(entry);
        }
        if (carried) {
            entry.input->printCarried();
        }
    }
}

void InputList::printValue(const Entry& entry) {
    const auto shown = [](const std::string& text) { return text.empty() ? "-" : text; };
    LabelledList row;
    if (entry.input->isSecret()) {
        row.add(entry.label, text(TEXT_CHANGED));
    } else if (entry.present && entry.input->isEditable()) {
        row.add(entry.label, std::make_unique<Change>(shown(*entry.present),
                                                      shown(entry.input->getShownText())));
    } else {
        row.add(entry.label, shown(entry.input->getShownText()));
    }
    row.printHTML();
}

void InputListView::printHTML() const {
    if (m_view == View::EDITABLE) {
        m_inputs.printInputs();
    } else {
        m_inputs.printValues(m_view == View::CONFIRMED);
    }
}

}  // namespace Console
