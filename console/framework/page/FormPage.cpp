#include "framework/page/FormPage.h"

#include "framework/component/PageChrome.h"
#include "framework/input/Form.h"
#include "framework/page/Partitions.h"
#include "framework/page/Probation.h"
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
      m_request(readFormRequest(context, function)),
      m_state(libraryStateOf(m_request.step)),
      m_shown(std::make_unique<LabelledList>()),
      m_carried(std::make_unique<ComponentGroup>()) {
    if (context.partition != JudgeAuthority::NO_PARTITION) {
        carryInAddress(PARTITION_FIELD, std::to_string(context.partition));
        m_returnPath = partitionPath(function, context.partition);
    }
}

FormPage::~FormPage() = default;

void FormPage::putProbation() {
    if (Component notice = makeProbationNotice(getRequester())) {
        HTMLMapUtil::insertIntoMap(getMap(), "probation", std::move(notice));
    }
}

void FormPage::addShown(Text label, Component value) {
    m_shown->add(text(label), std::move(value));
}

void FormPage::addShown(Text label, const std::string& value) {
    m_shown->add(text(label), value);
}

void FormPage::carry(const std::string& name, const std::string& value) {
    m_carried->add(std::make_unique<HiddenField>(name, inputValue(value)));
}

void FormPage::carryInAddress(const std::string& name, const std::string& value) {
    carry(name, value);
    m_address.emplace_back(name, value);
}

std::string FormPage::getField(const std::string& name) const {
    return fieldOf(m_request.fields, name);
}

bool FormPage::answerDraft() {
    if (!m_context.form.isPostMethod()) {
        return false;
    }
    const auto id = keepDraft(m_context, m_function, m_request);
    if (id) {
        m_context.redirect = makeAddress(DRAFT_FIELD, *id);
    }
    return id.has_value();
}

bool FormPage::claimForm() {
    if (m_request.draftId.empty()) {
        return true;
    }
    const auto id = claimDraft(m_context, m_function, m_request);
    if (id) {
        m_request.draftId = *id;
    } else {
        m_context.redirect = makeAddress(DRAFT_FIELD, m_request.draftId);
    }
    return id.has_value();
}

void FormPage::answerDone(const Record& done) {
    if (!m_donePath.empty()) {
        m_context.redirect = m_donePath;
        return;
    }
    m_request.done = done;
    const auto id = keepDone(m_context, m_function, m_request);
    if (id) {
        m_context.redirect = makeAddress(DONE_FIELD, *id);
    } else {
        showCompletion();
    }
}

/// The address of the page, with one more field unless its name is empty.
std::string FormPage::makeAddress(const std::string& field, const std::string& value) const {
    auto fields = m_address;
    if (!field.empty()) {
        fields.emplace_back(field, value);
    }
    return pathWith(ORVGUIUtil::getCGIPath(m_function), fields);
}

/// Where the browser finds the page without sending the form again, in the answer to a POST.
void FormPage::putAddress() {
    if (m_context.form.isPostMethod()) {
        putText(getMap(), "address", makeAddress("", ""));
    }
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
    putAddress();
    if (getStep() == Step::CONFIRM || getStep() == Step::EDIT_AGAIN) {
        carry(DRAFT_FIELD, m_request.draftId);
    }
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
    m_isCompleted = true;
    putAddress();
    HTMLMapUtil::insertIntoMap(getMap(), "shown", std::move(m_shown));
    setComplPageItemToMap(text(m_title), "\"location.href='" + m_returnPath + "'\"", m_completion);
    // In place of the library's component, whose lines cannot wrap.
    HTMLMapUtil::insertIntoMap(getMap(), "message",
                               makeSentence(m_context.messages.getMessage(m_completion, NO_CODE)));
}

}  // namespace Console
