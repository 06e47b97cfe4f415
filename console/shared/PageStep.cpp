#include "shared/PageStep.h"

#include <string>

#include "gui/CommonDefaultPage.h"
#include "gui/HTMLPage.h"

using namespace ORVLib::Gui;

namespace Console {

Step stepOf(const FormInfo& form) {
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
