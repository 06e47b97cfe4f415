#include "shared/SettingsPage.h"

#include <algorithm>
#include <iostream>

#include "gui/DisplayMode.h"
#include "gui/HTMLPage.h"
#include "gui/HiddenField.h"
#include "gui/SubmitButton.h"
#include "gui/TextString.h"
#include "shared/OuterPage.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char FORM_NAME[] = "form_name";
constexpr char BACK[] = "back";

void printEscaped(const std::string& text) {
    TextString(text).printHTML();
}

}  // namespace

/// The inputs as a list of labels, inputs and, where one is wrong, its hint; to be confirmed: the
/// labels and values, which hidden fields carry on.
class SettingsPage::EntryList : public HTMLComponent {
public:
    EntryList(const std::vector<Entry>& entries, MessageMgr& messages, bool editable)
        : m_entries(entries), m_messages(messages), m_editable(editable) {}

    void printHTML() const override {
        for (const Entry& entry : m_entries) {
            std::cout << (entry.wrong ? "<p class=\"entry wrong\">" : "<p class=\"entry\">");
            if (m_editable) {
                printInput(entry);
            } else {
                printValue(entry);
            }
            std::cout << "</p>\n";
        }
    }

    bool isError() const override { return false; }

private:
    void printLabel(const Entry& entry) const {
        std::cout << "<span class=\"label\">";
        printEscaped(m_messages.getString(entry.label));
        std::cout << "</span> ";
    }

    void printInput(const Entry& entry) const {
        std::cout << "<label>";
        printLabel(entry);
        entry.component->printHTML();
        std::cout << "</label>";
        if (entry.wrong) {
            std::cout << ' ';
            TextString(m_messages.getString(entry.hint), false, false, TextString::ERROR_COLOUR)
                .printHTML();
        }
    }

    void printValue(const Entry& entry) const {
        printLabel(entry);
        printEscaped(entry.input->getValue());
        HiddenField(entry.input->getName(), inputValue(entry.input->getValue())).printHTML();
    }

    const std::vector<Entry>& m_entries;
    MessageMgr& m_messages;
    bool m_editable;
};

SettingsPage::SettingsPage(MessageMgr& messages, const FormInfo& form, int pageId,
                           const std::string& path, int completion)
    : CommonDefaultPage(messages, pageId, &m_state, skeletonPath("skeleton_settings.txt")),
      m_form(form),
      m_path(path),
      m_completion(completion),
      m_step(stepOf(form)),
      m_state(stateOf(m_step)),
      m_displayMode(EDIT_MODE) {}

void SettingsPage::setTexts(Text title, Text purpose) {
    m_title = title;
    m_purpose = purpose;
}

void SettingsPage::addEntry(Entry entry) {
    m_entries.push_back(std::move(entry));
}

void SettingsPage::mark(const FormComponent& input) {
    for (Entry& entry : m_entries) {
        entry.wrong |= entry.input == &input;
    }
}

void SettingsPage::mark(const FormComponent& input, Text hint) {
    mark(input);
    for (Entry& entry : m_entries) {
        if (entry.input == &input) {
            entry.hint = hint;
        }
    }
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
        apply();
    }
    if (isAnyMarked()) {
        showForm(true);
        return;
    }
    setComplPageItemToMap(getMessages().getString(m_title), "\"location.href='" + m_path + "'\"",
                          m_completion);
}

void SettingsPage::readSubmitted() {
    for (Entry& entry : m_entries) {
        std::string value;
        m_form.getFormData(entry.input->getName(), value);
        entry.input->setValue(value);
    }
}

bool SettingsPage::areInputsValid() {
    for (Entry& entry : m_entries) {
        entry.wrong = entry.component->isError();
    }
    checkInputs();
    return !isAnyMarked();
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
        HTMLMapUtil::insertIntoMap(
            getMap(), "error",
            std::make_unique<TextString>(getMessages().getString(TEXT_SOME_WRONG), false, false,
                                         TextString::ERROR_COLOUR));
    }
    HTMLMapUtil::insertIntoMap(getMap(), "entries",
                               std::make_unique<EntryList>(m_entries, getMessages(), true));
    putButton("submit", isConfirmed() ? TEXT_NEXT : TEXT_SET);
    setError(again);
    for (Entry& entry : m_entries) {
        entry.input->setValue(inputValue(entry.input->getValue()));
    }
}

void SettingsPage::showConfirmation() {
    m_displayMode = CONFIRM_MODE;
    addNextPageItem(&m_state, false);
    putTexts();
    putSentence(getMap(), "notice", getMessages().getString(TEXT_PLEASE_CONFIRM));
    HTMLMapUtil::insertIntoMap(getMap(), "entries",
                               std::make_unique<EntryList>(m_entries, getMessages(), false));
    putButton("submit", TEXT_SET);
    putButton(BACK, TEXT_BACK);
}

void SettingsPage::putButton(const std::string& marker, Text label) {
    HTMLMapUtil::insertIntoMap(
        getMap(), marker,
        std::make_unique<SubmitButton>(marker, getMessages().getString(label), FORM_NAME));
}

void SettingsPage::putTexts() {
    putText(getMap(), "title", getMessages().getString(m_title));
    putSentence(getMap(), "purpose", getMessages().getString(m_purpose));
    putText(getMap(), "path", m_path);
    putText(getMap(), "refresh_label", getMessages().getString(TEXT_REFRESH));
    putText(getMap(), "password_label", getMessages().getString(TEXT_CHANGE_PASSWORD));
    putText(getMap(), "logout_label", getMessages().getString(TEXT_LOGOUT));
}

}  // namespace Console
