#include "framework/page/FormPage.h"

#include "framework/component/PageChrome.h"
#include "framework/input/Form.h"
#include "framework/page/Partitions.h"
#include "gui/HiddenField.h"
#include "gui/ORVGUIUtil.h"
#include "gui/SubmitButton.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int SETTINGS_CHANGED = 1;

}  // namespace

FormPage::FormPage(const PageContext& context, Function function, Text purpose,
                   const std::string& skeleton)
    : CommonDefaultPage(context.messages, function, &m_state, skeletonPath(skeleton)),
      m_context(context),
      m_function(function),
      m_title(entryOf(function).title),
      m_help(entryOf(function).help),
      m_purpose(purpose),
      m_returnPath(ORVGUIUtil::getCGIPath(function)),
      m_completion(SETTINGS_CHANGED),
      m_step(stepOf(context, moduleOf(function))),
      m_state(libraryStateOf(m_step)),
      m_shown(std::make_unique<LabelledList>()),
      m_carried(std::make_unique<ComponentGroup>()) {
    if (context.partition != JudgeAuthority::NO_PARTITION) {
        carry(PARTITION_FIELD, std::to_string(context.partition));
        m_returnPath = partitionPath(function, context.partition);
    }
}

FormPage::~FormPage() = default;

void FormPage::addShown(Text label, Component value) {
    m_shown->add(text(label), std::move(value));
}

void FormPage::addShown(Text label, const std::string& value) {
    m_shown->add(text(label), value);
}

void FormPage::carry(const std::string& name, const std::string& value) {
    m_carried->add(std::make_unique<HiddenField>(name, inputValue(value)));
}

std::string FormPage::getField(const std::string& name) const {
    return fieldOf(m_context.form, name);
}

void FormPage::refuse(Text reason, const std::string& detail) {
    m_problem = text(reason);
    if (!detail.empty()) {
        m_problem += " (" + detail + ")";
    }
}

void FormPage::setReturnPath(const std::string& path) {
    m_returnPath = path;
    HTMLMapUtil::insertIntoMap(getMap(), BACK_FIELD, makeLink(path, text(TEXT_BACK)));
}

void FormPage::beginForm(Step next) {
    HTMLMapUtil::insertIntoMap(getMap(), HTMLPage::FORM_PAGE_STATE, makePageState(next));
    HTMLMapUtil::insertIntoMap(getMap(), END_FIELD, makeFormEnd(getRequester()));
    putText(getMap(), "title", text(m_title));
    putSentence(getMap(), "purpose", text(m_purpose));
    putText(getMap(), "path", ORVGUIUtil::getCGIPath(m_function));
    HTMLMapUtil::insertIntoMap(getMap(), "tabs", makePartitionTabs(m_context, m_function));
    if (isRefused()) {
        HTMLMapUtil::insertIntoMap(getMap(), "error",
                                   makeSentence(m_problem, TextString::ERROR_COLOUR));
    }
    setError(isRefused());
}

void FormPage::beginConfirmation(const std::string& question, Text backLabel, int colour) {
    beginForm(Step::APPLY);
    HTMLMapUtil::insertIntoMap(getMap(), "notice", makeSentence(question, colour));
    putApplyButton();
    putButton(BACK_FIELD, backLabel);
}

void FormPage::putRows() {
    HTMLMapUtil::insertIntoMap(getMap(), "shown", std::move(m_shown));
    HTMLMapUtil::insertIntoMap(getMap(), "carried", std::move(m_carried));
}

void FormPage::putHelp(const InputList& inputs) {
    auto help = std::make_unique<Help>(m_help);
    inputs.describe(*help);
    HTMLMapUtil::insertIntoMap(getMap(), "help", std::move(help));
}

void FormPage::putButton(const std::string& marker, Text label) {
    HTMLMapUtil::insertIntoMap(getMap(), marker,
                               std::make_unique<SubmitButton>(marker, text(label), FORM_NAME));
}

void FormPage::showCompletion() {
    constexpr int NO_CODE = 0;
    setComplPageItemToMap(text(m_title), "\"location.href='" + m_returnPath + "'\"", m_completion);
    // In place of the library's component, whose lines cannot wrap.
    HTMLMapUtil::insertIntoMap(getMap(), "message",
                               makeSentence(m_context.messages.getMessage(m_completion, NO_CODE)));
}

}  // namespace Console
