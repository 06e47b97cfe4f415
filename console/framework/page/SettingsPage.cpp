#include "framework/page/SettingsPage.h"

#include <cstdint>

#include "framework/backend/RecordReader.h"
#include "framework/input/Form.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char REVISION_FIELD[] = "seen";

/// What tells texts from others, in a few characters: their FNV-1a sum of 64 bits.
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
      m_revision(fieldOf(context.form, REVISION_FIELD)) {}

void SettingsPage::makeDispPage() {
    if (getStep() == Step::EDIT_AGAIN) {
        m_inputs.submit(getContext().form);
        showForm();
    } else if (getStep() == Step::CONFIRM && isConfirmed()) {
        m_inputs.submit(getContext().form);
        if (areInputsValid()) {
            showConfirmation();
        } else {
            refuse(TEXT_SOME_WRONG);
            showForm();
        }
    } else {
        readSeen();
        if (getStep() == Step::CUT_OFF) {
            refuse(TEXT_FORM_CUT_OFF);
        }
        showForm();
    }
}

void SettingsPage::makeConfigPage() {
    if (isOutdated()) {
        refuse(TEXT_CHANGED_MEANWHILE);
        showForm();
        return;
    }
    m_inputs.submit(getContext().form);
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

void SettingsPage::readSeen() {
    readCurrent();
    Record record;
    for (const Input* const input : m_inputs.getInputs()) {
        if (isKept(*input)) {
            input->write(record);
        }
    }
    m_revision = sumOf(record);
}

/// True when somebody has changed the settings since the user saw them; the inputs then hold the
/// present ones. A form that was not made here need not say what its user saw.
bool SettingsPage::isOutdated() {
    const std::string revision = m_revision;
    if (revision.empty()) {
        return false;
    }
    readSeen();
    return m_revision != revision;
}

bool SettingsPage::areInputsValid() {
    m_inputs.check([this](const Input& input) { return isNeeded(input); });
    checkInputs();
    return !m_inputs.isAnyMarked();
}

void SettingsPage::showForm() {
    beginForm(isConfirmed() ? STATE_CONFIGURE : STATE_CONFIRM);
    putEntries(true);
    if (isConfirmed()) {
        putButton("submit", TEXT_NEXT);
    } else {
        putApplyButton();
    }
}

void SettingsPage::showConfirmation() {
    beginConfirmation(getConfirmation(), TEXT_BACK);
    putEntries(false);
}

void SettingsPage::putEntries(bool editable) {
    carry(REVISION_FIELD, m_revision);
    putRows();
    HTMLMapUtil::insertIntoMap(getMap(), "entries",
                               std::make_unique<InputListView>(m_inputs, getMessages(), editable));
}

}  // namespace Console
