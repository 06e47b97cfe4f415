#include "shared/SettingsPage.h"

#include <cstdint>

#include "gui/HiddenField.h"
#include "gui/ORVGUIUtil.h"
#include "gui/SubmitButton.h"
#include "gui/TextString.h"
#include "shared/Components.h"
#include "shared/Form.h"
#include "shared/OuterPage.h"
#include "shared/PartitionMain.h"
#include "shared/Record.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int SETTINGS_CHANGED = 1;

constexpr char SEEN_FIELD[] = "seen";

/// What tells texts from others, in a few characters: their FNV-1a sum of 64 bits.
std::string sumOf(const std::vector<std::string>& texts) {
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
    : CommonDefaultPage(context.messages, function, &m_state,
                        skeletonPath("skeleton_settings.txt")),
      m_context(context),
      m_function(function),
      m_title(titleOf(function)),
      m_purpose(purpose),
      m_returnPath(ORVGUIUtil::getCGIPath(function)),
      m_completion(SETTINGS_CHANGED),
      m_step(stepOf(context, function)),
      m_state(stateOf(m_step)),
      m_seen(fieldOf(context.form, SEEN_FIELD)),
      m_shown(std::make_unique<Facts>()),
      m_carried(std::make_unique<Sequence>()) {
    if (context.partition != JudgeAuthority::NO_PARTITION) {
        carry(PartitionMain::PARTITION_FIELD, std::to_string(context.partition));
        m_returnPath = partitionPath(function, context.partition);
    }
}

SettingsPage::~SettingsPage() = default;

void SettingsPage::addShown(Text label, Component value) {
    m_shown->add(text(label), std::move(value));
}

void SettingsPage::addShown(Text label, const std::string& value) {
    m_shown->add(text(label), value);
}

void SettingsPage::carry(const std::string& name, const std::string& value) {
    m_carried->add(std::make_unique<HiddenField>(name, inputValue(value)));
}

void SettingsPage::refuse(Text reason) {
    m_problem = reason;
    m_refused = true;
}

void SettingsPage::setReturnPath(const std::string& path) {
    m_returnPath = path;
    HTMLMapUtil::insertIntoMap(getMap(), BACK_FIELD, makeLink(path, text(TEXT_BACK)));
}

void SettingsPage::makeDispPage() {
    if (m_step == Step::EDIT_AGAIN) {
        m_inputs.submit(m_context.form);
        showForm(false);
    } else if (m_step == Step::CONFIRM && isConfirmed()) {
        m_inputs.submit(m_context.form);
        if (areInputsValid()) {
            showConfirmation();
        } else {
            showForm(true);
        }
    } else {
        readSeen();
        if (m_step == Step::CUT_OFF) {
            refuse(TEXT_FORM_CUT_OFF);
        }
        showForm(m_refused);
    }
}

void SettingsPage::makeConfigPage() {
    if (isOutdated()) {
        refuse(TEXT_CHANGED_MEANWHILE);
        showForm(true);
        return;
    }
    m_inputs.submit(m_context.form);
    if (areInputsValid()) {
        apply();
    }
    if (m_inputs.isAnyMarked() || m_refused) {
        showForm(true);
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
    m_seen = sumOf(record.getTexts());
}

/// True when somebody has changed the settings since the user saw them; the inputs then hold the
/// present ones. A form that was not made here need not say what its user saw.
bool SettingsPage::isOutdated() {
    const std::string seen = m_seen;
    if (seen.empty()) {
        return false;
    }
    readSeen();
    return m_seen != seen;
}

bool SettingsPage::areInputsValid() {
    m_inputs.check([this](const Input& input) { return isNeeded(input); });
    checkInputs();
    return !m_inputs.isAnyMarked();
}

void SettingsPage::showForm(bool again) {
    constexpr int CONFIRMED = STATE_CONFIRM;
    constexpr int EDITED = STATE_CONFIGURE;
    beginForm(isConfirmed() ? &EDITED : &CONFIRMED);
    if (again) {
        HTMLMapUtil::insertIntoMap(getMap(), "error",
                                   makeSentence(text(m_problem), TextString::ERROR_COLOUR));
    }
    putEntries(true);
    putButton("submit", isConfirmed() ? TEXT_NEXT : m_applyLabel);
    setError(again);
}

void SettingsPage::showConfirmation() {
    beginForm(&m_state);
    putSentence(getMap(), "notice", getConfirmation());
    putEntries(false);
    putButton("submit", m_applyLabel);
    putButton(BACK_FIELD, TEXT_BACK);
}

void SettingsPage::showCompletion() {
    setComplPageItemToMap(text(m_title), "\"location.href='" + m_returnPath + "'\"", m_completion);
}

void SettingsPage::putEntries(bool editable) {
    carry(SEEN_FIELD, m_seen);
    HTMLMapUtil::insertIntoMap(getMap(), "shown", std::move(m_shown));
    HTMLMapUtil::insertIntoMap(getMap(), "entries",
                               std::make_unique<InputListView>(m_inputs, getMessages(), editable));
    HTMLMapUtil::insertIntoMap(getMap(), "carried", std::move(m_carried));
}

void SettingsPage::putButton(const std::string& marker, Text label) {
    HTMLMapUtil::insertIntoMap(getMap(), marker,
                               std::make_unique<SubmitButton>(marker, text(label), FORM_NAME));
}

void SettingsPage::beginForm(const int* state) {
    addNextPageItem(state, false);
    HTMLMapUtil::insertIntoMap(getMap(), END_FIELD, makeFormEnd(getRequester()));
    putTexts();
}

void SettingsPage::putTexts() {
    putText(getMap(), "title", text(m_title));
    putSentence(getMap(), "purpose", text(m_purpose));
    putText(getMap(), "path", ORVGUIUtil::getCGIPath(m_function));
    HTMLMapUtil::insertIntoMap(getMap(), "tabs", makePartitionTabs(m_context, m_function));
}

}  // namespace Console
