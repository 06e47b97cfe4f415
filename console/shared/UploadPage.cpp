#include "shared/UploadPage.h"

#include "gui/FileField.h"
#include "gui/HiddenField.h"
#include "gui/ORVGUIUtil.h"
#include "gui/SubmitButton.h"
#include "shared/Form.h"
#include "shared/OuterPage.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char FILE_FIELD[] = "file";
constexpr int FILE_FIELD_SIZE = 48;

constexpr int SENT = CommonDefaultPage::STATE_CONFIGURE;  // leads to the state that is confirmed

/// True when a file came that could not be kept. Nothing is read behind it.
bool isFileLost(const FormInfo& form) {
    return !form.getUploadedFileName().empty() && form.getTemporaryFilePath().empty();
}

}  // namespace

UploadPage::UploadPage(const PageContext& context, Function function, Text purpose)
    : CommonDefaultPage(context.messages, function, &m_state, skeletonPath("skeleton_upload.txt")),
      m_context(context),
      m_function(function),
      m_purpose(purpose),
      m_step(stepOf(context, function)),
      m_state(stateOf(m_step)),
      m_facts(std::make_unique<Facts>()),
      m_carried(std::make_unique<Sequence>()),
      m_returnPath(ORVGUIUtil::getCGIPath(function)) {}

void UploadPage::describe(Text label, const std::string& value) {
    m_facts->add(text(label), value);
}

void UploadPage::carry(const std::string& name, const std::string& value) {
    m_carried->add(std::make_unique<HiddenField>(name, inputValue(value)));
}

std::string UploadPage::getCarried(const std::string& name) const {
    return fieldOf(m_context.form, name);
}

void UploadPage::refuse(Text reason, const std::string& detail) {
    m_problem = text(reason);
    if (!detail.empty()) {
        m_problem += " (" + detail + ")";
    }
}

void UploadPage::setCompletion(int messageId, const std::string& path) {
    m_completion = messageId;
    m_returnPath = path;
}

void UploadPage::setLabels(Text file, Text apply, Text notice) {
    m_fileLabel = file;
    m_applyLabel = apply;
    m_notice = notice;
}

std::string UploadPage::sizeText(unsigned long bytes) {
    return std::to_string(bytes) + ' ' + text(TEXT_BYTES);
}

void UploadPage::makeDispPage() {
    if (m_step == Step::CONFIRM) {
        receiveFile();
        if (!isRefused()) {
            showConfirmation();
            return;
        }
    }
    if (m_step == Step::EDIT_AGAIN) {
        drop();
        showForm(text(TEXT_FILE_DROPPED));
    } else {
        if (m_step == Step::CUT_OFF) {
            refuse(isFileLost(m_context.form) ? TEXT_FILE_LOST : TEXT_FORM_CUT_OFF);
        }
        showForm("");
    }
}

void UploadPage::makeConfigPage() {
    apply();
    m_completed = !isRefused();
    if (m_completed) {
        setComplPageItemToMap(text(titleOf(m_function)), "\"location.href='" + m_returnPath + "'\"",
                              m_completion);
    } else {
        showForm("");
    }
}

void UploadPage::receiveFile() {
    const FormInfo& form = m_context.form;
    if (form.getUploadedFileName().empty()) {
        refuse(TEXT_CHOOSE_FILE);
    } else if (isFileLost(form)) {
        refuse(TEXT_FILE_LOST);
    } else {
        receive(form.getTemporaryFilePath());
    }
}

void UploadPage::showForm(const std::string& notice) {
    beginForm(&SENT);
    if (isRefused()) {
        HTMLMapUtil::insertIntoMap(getMap(), "error",
                                   makeSentence(m_problem, TextString::ERROR_COLOUR));
    }
    putSentence(getMap(), "notice", notice);
    if (Component present = makePresent()) {
        HTMLMapUtil::insertIntoMap(getMap(), "present", std::move(present));
    }
    putText(getMap(), "file_label", text(m_fileLabel));
    HTMLMapUtil::insertIntoMap(
        getMap(), "file",
        std::make_unique<FileField>(FILE_FIELD, "", FORM_NAME, text(TEXT_BROWSE), FILE_FIELD_SIZE));
    putButton("submit", TEXT_NEXT);
    setError(isRefused());
}

void UploadPage::showConfirmation() {
    getGenerator().setSkeletonFileName(skeletonPath("skeleton_settings.txt"));
    beginForm(&m_state);
    putSentence(getMap(), "notice", text(m_notice));
    HTMLMapUtil::insertIntoMap(getMap(), "entries", std::move(m_facts));
    HTMLMapUtil::insertIntoMap(getMap(), "carried", std::move(m_carried));
    putButton("submit", m_applyLabel);
    putButton(BACK_FIELD, TEXT_CANCEL);
}

void UploadPage::beginForm(const int* state) {
    addNextPageItem(state, false);
    HTMLMapUtil::insertIntoMap(getMap(), END_FIELD, makeFormEnd(getRequester()));
    putTexts();
}

void UploadPage::putTexts() {
    putText(getMap(), "title", text(titleOf(m_function)));
    putSentence(getMap(), "purpose", text(m_purpose));
    putText(getMap(), "path", ORVGUIUtil::getCGIPath(m_function));
}

void UploadPage::putButton(const std::string& marker, Text label) {
    HTMLMapUtil::insertIntoMap(getMap(), marker,
                               std::make_unique<SubmitButton>(marker, text(label), FORM_NAME));
}

}  // namespace Console
