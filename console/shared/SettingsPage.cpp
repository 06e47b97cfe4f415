#include "shared/SettingsPage.h"

#include <algorithm>
#include <iostream>

#include "gui/HTMLPage.h"
#include "gui/HiddenField.h"
#include "gui/ORVGUIUtil.h"
#include "gui/SubmitButton.h"
#include "gui/TextString.h"
#include "shared/Components.h"
#include "shared/OuterPage.h"
#include "shared/PartitionMain.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char FORM_NAME[] = "form_name";
constexpr char BACK[] = "back";
constexpr int SETTINGS_CHANGED = 1;

/// Hidden fields that a form carries on.
class CarriedFields : public HTMLComponent {
public:
    explicit CarriedFields(const std::vector<std::pair<std::string, std::string>>& fields)
        : m_fields(fields) {}

    void printHTML() const override {
        for (const auto& [name, value] : m_fields) {
            HiddenField(name, inputValue(value)).printHTML();
        }
    }

    bool isError() const override { return false; }

private:
    const std::vector<std::pair<std::string, std::string>>& m_fields;
};

}  // namespace

/// The inputs as a list of labels, inputs and, where one is wrong, its hint; to be confirmed: the
/// labels and values, which hidden fields carry on.
class SettingsPage::EntryList : public HTMLComponent {
public:
    EntryList(const std::vector<Entry>& entries, MessageMgr& messages, bool editable)
        : m_entries(entries), m_messages(messages), m_editable(editable) {}

    void printHTML() const override {
        for (const Entry& entry : m_entries) {
            if (!entry.heading.empty()) {
                std::cout << "<h2>";
                TextString(entry.heading).printHTML();
                std::cout << "</h2>\n";
            }
            if (m_editable) {
                printInput(entry);
            } else {
                if (entry.needed) {
                    printValue(entry);
                }
                entry.input->printCarried();
            }
        }
    }

    bool isError() const override { return false; }

private:
    // A label stands for one input; boxes and buttons that belong together are a field set.
    void printInput(const Entry& entry) const {
        const bool isGroup = entry.input->isGroup();
        std::cout << (isGroup ? "<fieldset class=\"entry" : "<p class=\"entry")
                  << (entry.wrong ? " wrong\">" : "\">")
                  << (isGroup ? "<legend class=\"label\">" : "<label><span class=\"label\">");
        TextString(entry.label).printHTML();
        std::cout << (isGroup ? "</legend> " : "</span> ");
        entry.input->print();
        std::cout << (isGroup ? "" : "</label>");
        if (entry.wrong) {
            std::cout << ' ';
            makeSentence(m_messages.getString(entry.hint), TextString::ERROR_COLOUR)->printHTML();
        }
        std::cout << (isGroup ? "</fieldset>\n" : "</p>\n");
    }

    static void printValue(const Entry& entry) {
        std::cout << "<p class=\"entry\"><span class=\"label\">";
        TextString(entry.label).printHTML();
        std::cout << "</span> <span class=\"value\">";
        TextString(entry.input->getShownText()).printHTML();
        std::cout << "</span></p>\n";
    }

    const std::vector<Entry>& m_entries;
    MessageMgr& m_messages;
    bool m_editable;
};

SettingsPage::SettingsPage(const PageContext& context, Function function, Text purpose)
    : CommonDefaultPage(context.messages, function, &m_state,
                        skeletonPath("skeleton_settings.txt")),
      m_context(context),
      m_function(function),
      m_purpose(purpose),
      m_returnPath(ORVGUIUtil::getCGIPath(function)),
      m_completion(SETTINGS_CHANGED),
      m_step(stepOf(context.form)),
      m_state(stateOf(m_step)) {
    if (context.partition != JudgeAuthority::NO_PARTITION) {
        carry(PartitionMain::PARTITION_FIELD, std::to_string(context.partition));
        m_returnPath = partitionPath(function, context.partition);
    }
}

SettingsPage::~SettingsPage() = default;

void SettingsPage::addEntry(const std::string& label, Text hint, std::unique_ptr<Input> input) {
    m_entries.push_back({m_nextHeading, label, hint, std::move(input)});
    m_nextHeading.clear();
}

void SettingsPage::addHeading(const std::string& heading) {
    m_nextHeading = heading;
}

void SettingsPage::carry(const std::string& name, const std::string& value) {
    m_carried.emplace_back(name, value);
}

void SettingsPage::mark(const Input& input) {
    for (Entry& entry : m_entries) {
        entry.wrong |= entry.input.get() == &input;
    }
}

void SettingsPage::mark(const Input& input, Text hint) {
    mark(input);
    for (Entry& entry : m_entries) {
        if (entry.input.get() == &input) {
            entry.hint = hint;
        }
    }
}

void SettingsPage::refuse(Text reason) {
    m_problem = reason;
    m_refused = true;
}

void SettingsPage::setReturnPath(const std::string& path) {
    m_returnPath = path;
    HTMLMapUtil::insertIntoMap(getMap(), BACK, makeLink(path, text(TEXT_BACK)));
}

std::vector<Input*> SettingsPage::getInputs() const {
    std::vector<Input*> inputs;
    for (const Entry& entry : m_entries) {
        inputs.push_back(entry.input.get());
    }
    return inputs;
}

SettingsPage::Step SettingsPage::stepOf(const FormInfo& form) {
    std::string carried;
    form.getFormData(HTMLPage::FORM_PAGE_STATE, carried);
    if (!form.isPostMethod()) {
        return Step::SHOW;
    }
    if (form.getFields().count(BACK) != 0) {
        return Step::EDIT_AGAIN;
    }
    if (carried == std::to_string(STATE_CONFIRM)) {
        return Step::CONFIRM;
    }
    return carried == std::to_string(STATE_COMPLETE) ? Step::APPLY : Step::SHOW;
}

int SettingsPage::stateOf(Step step) {
    switch (step) {
        case Step::CONFIRM:
            return STATE_CONFIRM;
        case Step::APPLY:
            return STATE_CONFIGURE;
        default:
            return 0;
    }
}

void SettingsPage::makeDispPage() {
    if (m_step == Step::EDIT_AGAIN) {
        readSubmitted();
        showForm(false);
    } else if (m_step == Step::CONFIRM && isConfirmed()) {
        readSubmitted();
        if (areInputsValid()) {
            showConfirmation();
        } else {
            showForm(true);
        }
    } else {
        readCurrent();
        showForm(false);
    }
}

void SettingsPage::makeConfigPage() {
    readSubmitted();
    if (areInputsValid()) {
        emptyUnneeded();
        apply();
    }
    if (isAnyMarked() || m_refused) {
        showForm(true);
    } else {
        showCompletion();
    }
}

void SettingsPage::readSubmitted() {
    for (Entry& entry : m_entries) {
        entry.input->submit(m_context.form);
    }
}

bool SettingsPage::areInputsValid() {
    for (Entry& entry : m_entries) {
        entry.needed = isNeeded(*entry.input);
        entry.wrong = entry.needed && entry.input->isError();
    }
    checkInputs();
    return !isAnyMarked();
}

void SettingsPage::emptyUnneeded() {
    for (Entry& entry : m_entries) {
        if (!entry.needed) {
            entry.input->setText("");
        }
    }
}

bool SettingsPage::isAnyMarked() const {
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [](const Entry& entry) { return entry.wrong; });
}

void SettingsPage::showForm(bool again) {
    constexpr int CONFIRMED = STATE_CONFIRM;
    constexpr int EDITED = STATE_CONFIGURE;
    addNextPageItem(isConfirmed() ? &EDITED : &CONFIRMED, false);
    putTexts();
    if (again) {
        HTMLMapUtil::insertIntoMap(getMap(), "error",
                                   makeSentence(text(m_problem), TextString::ERROR_COLOUR));
    }
    putEntries(true);
    putButton("submit", isConfirmed() ? TEXT_NEXT : m_applyLabel);
    setError(again);
}

void SettingsPage::showConfirmation() {
    addNextPageItem(&m_state, false);
    putTexts();
    putSentence(getMap(), "notice", text(TEXT_PLEASE_CONFIRM));
    putEntries(false);
    putButton("submit", m_applyLabel);
    putButton(BACK, TEXT_BACK);
}

void SettingsPage::showCompletion() {
    setComplPageItemToMap(text(titleOf(m_function)), "\"location.href='" + m_returnPath + "'\"",
                          m_completion);
}

void SettingsPage::putEntries(bool editable) {
    HTMLMapUtil::insertIntoMap(getMap(), "entries",
                               std::make_unique<EntryList>(m_entries, getMessages(), editable));
    HTMLMapUtil::insertIntoMap(getMap(), "carried", std::make_unique<CarriedFields>(m_carried));
}

void SettingsPage::putButton(const std::string& marker, Text label) {
    HTMLMapUtil::insertIntoMap(getMap(), marker,
                               std::make_unique<SubmitButton>(marker, text(label), FORM_NAME));
}

void SettingsPage::putTexts() {
    putText(getMap(), "title", text(titleOf(m_function)));
    putSentence(getMap(), "purpose", text(m_purpose));
    putText(getMap(), "path", ORVGUIUtil::getCGIPath(m_function));
    HTMLMapUtil::insertIntoMap(getMap(), "tabs", makePartitionTabs(m_context, m_function));
}

}  // namespace Console
