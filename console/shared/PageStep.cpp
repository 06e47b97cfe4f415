#include "shared/PageStep.h"

#include <string>

#include "gui/CommonDefaultPage.h"
#include "gui/HTMLPage.h"
#include "gui/HiddenField.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char END_FIELD[] = "form_end";

/// True for a form with its last field. Behind a file that could not be kept nothing is read; such
/// a form changes nothing, and its page says that the file was lost.
bool isWhole(const FormInfo& form) {
    const bool isFileLost =
        !form.getUploadedFileName().empty() && form.getTemporaryFilePath().empty();
    return form.getFields().count(END_FIELD) != 0 || isFileLost;
}

Step wantedStep(const FormInfo& form) {
    std::string carried;
    form.getFormData(HTMLPage::FORM_PAGE_STATE, carried);
    if (!form.isPostMethod()) {
        return Step::SHOW;
    }
    if (form.getFields().count(BACK_FIELD) != 0) {
        return Step::EDIT_AGAIN;
    }
    if (carried == std::to_string(CommonDefaultPage::STATE_CONFIRM)) {
        return Step::CONFIRM;
    }
    return carried == std::to_string(CommonDefaultPage::STATE_COMPLETE) ? Step::APPLY : Step::SHOW;
}

}  // namespace

void putFormEnd(ComponentMap& map) {
    HTMLMapUtil::insertIntoMap(map, END_FIELD, std::make_unique<HiddenField>(END_FIELD, "1"));
}

Step stepOf(const FormInfo& form) {
    const Step step = wantedStep(form);
    return step == Step::SHOW || isWhole(form) ? step : Step::CUT_OFF;
}

int stateOf(Step step) {
    switch (step) {
        case Step::CONFIRM:
            return CommonDefaultPage::STATE_CONFIRM;
        case Step::APPLY:
            return CommonDefaultPage::STATE_CONFIGURE;
        default:
            return 0;
    }
}

}  // namespace Console
