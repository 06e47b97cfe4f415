#include "framework/page/UploadPage.h"

#include "framework/component/AddedAttributes.h"
#include "framework/component/PageChrome.h"
#include "framework/input/Form.h"
#include "gui/FileField.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char FILE_FIELD[] = "file";
constexpr int FILE_FIELD_SIZE = 48;

/// True when a file was sent but could not be stored. The fields after it are not read.
bool isFileLost(const FormInfo& form) {
    return !form.getUploadedFileName().empty() && form.getTemporaryFilePath().empty();
}

}  // namespace

UploadPage::UploadPage(const PageContext& context, Function function, Text purpose, Text file,
                       Text notice)
    : FormPage(context, function, purpose, "skeleton_upload.txt"), m_file(file), m_notice(notice) {}

std::string UploadPage::sizeText(unsigned long bytes) {
    return std::to_string(bytes) + ' ' + text(TEXT_BYTES);
}

void UploadPage::makeDispPage() {
    switch (getStep()) {
        case Step::CONFIRM:
            receiveFile();
            if (!isRefused()) {
                showConfirmation();
                return;
            }
            break;
        case Step::EDIT_AGAIN:
            drop();
            showForm(text(TEXT_FILE_DROPPED));
            return;
        case Step::DONE:
            showCompletion();
            return;
        case Step::GONE:
            refuse(TEXT_NO_DRAFT);
            break;
        case Step::CUT_OFF:
            refuse(isFileLost(getContext().form) ? TEXT_FILE_LOST : TEXT_FORM_CUT_OFF);
            break;
        default:
            break;
    }
    showForm("");
}

void UploadPage::makeConfigPage() {
    apply();
    if (isRefused()) {
        showForm("");
    } else {
        answerDone({});
    }
}

void UploadPage::receiveFile() {
    const FormInfo& form = getContext().form;
    if (form.getUploadedFileName().empty()) {
        refuse(TEXT_CHOOSE_FILE);
    } else if (isFileLost(form)) {
        refuse(TEXT_FILE_LOST);
    } else {
        receive(form.getTemporaryFilePath());
    }
}

void UploadPage::showForm(const std::string& notice) {
    beginForm(Step::CONFIRM);
    putHelp();
    putSentence(getMap(), "notice", notice);
    if (Component present = makePresent()) {
        HTMLMapUtil::insertIntoMap(getMap(), "present", std::move(present));
    }
    putText(getMap(), "file_label", text(m_file));
    HTMLMapUtil::insertIntoMap(
        getMap(), "file",
        std::make_unique<AddedAttributes>(
            std::make_unique<FileField>(FILE_FIELD, "", FORM_NAME, text(TEXT_BROWSE),
                                        FILE_FIELD_SIZE),
            [this](std::size_t) { return attribute("aria-label", text(m_file)); }));
    putButton("submit", TEXT_NEXT);
}

void UploadPage::showConfirmation() {
    getGenerator().setSkeletonFileName(skeletonPath("skeleton_settings.txt"));
    beginConfirmation(text(m_notice), TEXT_CANCEL);
    putRows();
}

}  // namespace Console
