#include "framework/page/SettingsPage.h"

#include <cstdint>

#include "framework/backend/RecordReader.h"
#include "framework/component/PageChrome.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char REVISION_FIELD[] = "seen";

/// A digest of texts: their FNV-1a sum of 64 bits.
std::string sumOf(const Record& texts) {
    std::uint64_t sum = 0xcbf29ce484222325;
    for (const std::string& text : texts) {
        for (const char* byte = text.c_str(); byte != text.c_str() + text.size() + 1; ++byte) {
            sum = (sum ^ static_cast<unsigned char>(*byte)) * 0x100000001b3;
        }
    }
    return std::to_string(sum);
}

}  // namespace

SettingsPage::SettingsPage(const PageContext& context, Function function, Text purpose)
    : FormPage(context, function, purpose, "skeleton_settings.txt"),
      m_revision(getField(REVISION_FIELD)) {}

void SettingsPage::makeDispPage() {
    const bool isToConfirm = getStep() == Step::CONFIRM && isConfirmed();
    if (isToConfirm || getStep() == Step::EDIT_AGAIN) {
        submit();
    } else {
        readPresent();
    }
    if (isToConfirm && areInputsValid()) {
        showConfirmation();
        return;
    }
    if (isToConfirm) {
        refuse(TEXT_SOME_WRONG);
    } else if (getStep() == Step::CUT_OFF) {
        refuse(TEXT_FORM_CUT_OFF);
    }
    showForm();
}

void SettingsPage::makeConfigPage() {
    if (isOutdated()) {
        refuse(TEXT_CHANGED_MEANWHILE);
        showForm();
        return;
    }
    submit();
    if (areInputsValid()) {
        apply();
    }
    if (m_inputs.isAnyMarked() && !isRefused()) {
        refuse(TEXT_SOME_WRONG);
    }
    if (isRefused()) {
        showForm();
    } else {
        showCompletion();
    }
}

void SettingsPage::readPresent() {
    readCurrent();
    Record record;
    for (const Input* const input : m_inputs.getInputs()) {
        if (isKept(*input)) {
            input->write(record);
        }
    }
    m_revision = sumOf(record);
}

/// True when somebody has changed the settings since the user saw them; the inputs then have the
/// present ones. A form of another program need not carry a revision.
bool SettingsPage::isOutdated() {
    const std::string revision = m_revision;
    if (revision.empty()) {
        return false;
    }
    readPresent();
    return m_revision != revision;
}

void SettingsPage::submit() {
    m_inputs.submit(getContext().form);
}

bool SettingsPage::areInputsValid() {
    m_inputs.check([this](const Input& input) { return isNeeded(input); });
    checkInputs();
    return !m_inputs.isAnyMarked();
}

void SettingsPage::showForm() {
    beginForm(isConfirmed() ? Step::CONFIRM : Step::APPLY);
    putHelp(m_inputs);
    putEntries(true);
    if (isConfirmed()) {
        putButton("submit", TEXT_NEXT);
    } else {
        putApplyButton();
    }
}

void SettingsPage::showConfirmation() {
    beginConfirmation(getConfirmation(), TEXT_BACK,
                      isDangerous() ? TextString::ERROR_COLOUR : TextString::PLAIN);
    if (isDangerous()) {
        putText(getMap(), "danger", "danger");
    }
    putEntries(false);
}

void SettingsPage::putEntries(bool editable) {
    carry(REVISION_FIELD, m_revision);
    putRows();
    HTMLMapUtil::insertIntoMap(getMap(), "entries",
                               std::make_unique<InputListView>(m_inputs, editable));
}

}  // namespace Console
