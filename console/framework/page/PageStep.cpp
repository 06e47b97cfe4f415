#include "framework/page/PageStep.h"

#include <string>

#include "framework/access/CsrfToken.h"
#include "gui/CommonDefaultPage.h"
#include "gui/HTMLPage.h"
#include "gui/HiddenField.h"
#include "orv/OrvTrace.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

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

std::unique_ptr<HTMLComponent> makeFormEnd(const CGIRequester& requester) {
    return std::make_unique<HiddenField>(END_FIELD, csrfToken(requester.getSessionId()));
}

bool isOwnForm(const FormInfo& form, const CGIRequester& requester, int module) {
    std::string token;
    const bool isWhole = form.getFormData(END_FIELD, token);
    if (isWhole && isCsrfToken(token, requester.getSessionId())) {
        return true;
    }
    ORVLib::trace::OrvTrace(1, 2, module)
        .putLog(0, isWhole ? "form refused: not of this session" : "form refused: not whole");
    return false;
}

Step stepOf(const PageContext& context, int module) {
    const Step step = wantedStep(context.form);
    const bool isTaken = step == Step::SHOW || isOwnForm(context.form, context.requester, module);
    return isTaken ? step : Step::CUT_OFF;
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
