#include "framework/page/PageStep.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "framework/access/CsrfToken.h"
#include "framework/input/Form.h"
#include "gui/CommonDefaultPage.h"
#include "gui/HTMLPage.h"
#include "gui/HiddenField.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

/// A step that a form asks for: the `page_state` that the form carries, and the library's state.
struct StepState {
    Step step;
    int carried;
    int libraryState;
};

constexpr StepState STATES[] = {
    {Step::CONFIRM, CommonDefaultPage::STATE_CONFIRM, CommonDefaultPage::STATE_CONFIRM},
    {Step::APPLY, CommonDefaultPage::STATE_COMPLETE, CommonDefaultPage::STATE_CONFIGURE},
};

/// Null when no state passes.
template <typename Condition>
const StepState* find(Condition condition) {
    const auto* const found = std::find_if(std::begin(STATES), std::end(STATES), condition);
    return found != std::end(STATES) ? found : nullptr;
}

const StepState* find(Step step) {
    return find([step](const StepState& state) { return state.step == step; });
}

Step wantedStep(const FormInfo& form) {
    if (!form.isPostMethod()) {
        return Step::SHOW;
    }
    if (form.getFields().count(BACK_FIELD) != 0) {
        return Step::EDIT_AGAIN;
    }
    const std::string carried = fieldOf(form, HTMLPage::FORM_PAGE_STATE);
    const StepState* const wanted = find(
        [&carried](const StepState& state) { return carried == std::to_string(state.carried); });
    return wanted != nullptr ? wanted->step : Step::SHOW;
}

}  // namespace

Component makeFormEnd(const CGIRequester& requester) {
    return std::make_unique<HiddenField>(END_FIELD, csrfToken(requester.getSessionId()));
}

bool isOwnForm(const FormInfo& form, const CGIRequester& requester, Module module) {
    std::string token;
    const bool isWhole = form.getFormData(END_FIELD, token);
    if (isWhole && isCsrfToken(token, requester.getSessionId())) {
        return true;
    }
    logError(module, isWhole ? "form refused: not of this session" : "form refused: not whole");
    return false;
}

Step stepOf(const PageContext& context, Module module) {
    const Step step = wantedStep(context.form);
    const bool isAccepted =
        step == Step::SHOW || isOwnForm(context.form, context.requester, module);
    return isAccepted ? step : Step::CUT_OFF;
}

int libraryStateOf(Step step) {
    const StepState* const state = find(step);
    return state != nullptr ? state->libraryState : 0;
}

Component makePageState(Step next) {
    const StepState* const state = find(next);
    return std::make_unique<HiddenField>(HTMLPage::FORM_PAGE_STATE,
                                         state != nullptr ? std::to_string(state->carried) : "");
}

}  // namespace Console
