#include "framework/page/PageStep.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

#include "framework/access/CsrfToken.h"
#include "framework/input/Form.h"
#include "framework/page/Notes.h"
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

/// The step that the fields of a form ask for.
Step wantedStep(const Fields& fields) {
    if (fields.count(BACK_FIELD) != 0) {
        return Step::EDIT_AGAIN;
    }
    const std::string carried = fieldOf(fields, HTMLPage::FORM_PAGE_STATE);
    const StepState* const wanted = find(
        [&carried](const StepState& state) { return carried == std::to_string(state.carried); });
    return wanted != nullptr ? wanted->step : Step::SHOW;
}

/// What a note begins with. The bytes of another language's characters would be wrong.
Record headerOf(const PageContext& context, Function function, const char* kind) {
    return {kind, std::to_string(function), std::to_string(context.language)};
}

/// The texts of a note that was kept for the function, without its header. None for another one.
std::optional<Record> findNoteOf(const PageContext& context, Function function, const char* kind) {
    std::optional<Record> note = findNote(context.requester, fieldOf(context.form, kind));
    const Record header = headerOf(context, function, kind);
    if (!note || note->size() < header.size() ||
        !std::equal(header.begin(), header.end(), note->begin())) {
        return std::nullopt;
    }
    note->erase(note->begin(), note->begin() + static_cast<std::ptrdiff_t>(header.size()));
    return note;
}

void readDraft(const PageContext& context, Function function, FormRequest& request) {
    const std::optional<Record> note = findNoteOf(context, function, DRAFT_FIELD);
    request.step = Step::GONE;
    if (!note || note->size() % 2 != 0) {
        return;
    }
    Fields fields;
    for (auto text = note->begin(); text != note->end(); text += 2) {
        fields[*text] = *std::next(text);
    }
    // What could not be applied is to be confirmed again.
    const bool isToEdit = wantedStep(fields) == Step::EDIT_AGAIN;
    request.step = isToEdit ? Step::EDIT_AGAIN : Step::CONFIRM;
    request.fields = std::move(fields);
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

FormRequest readFormRequest(const PageContext& context, Function function) {
    const Fields& fields = context.form.getFields();
    FormRequest request = {Step::SHOW, fields, fieldOf(fields, DRAFT_FIELD), {}};
    if (context.form.isPostMethod()) {
        request.step = wantedStep(fields);
        if (request.step != Step::SHOW &&
            !isOwnForm(context.form, context.requester, moduleOf(function))) {
            request.step = Step::CUT_OFF;
        }
    } else if (fields.count(DRAFT_FIELD) != 0) {
        readDraft(context, function, request);
    } else if (fields.count(DONE_FIELD) != 0) {
        std::optional<Record> note = findNoteOf(context, function, DONE_FIELD);
        request.step = note ? Step::DONE : Step::GONE;
        request.done = note ? std::move(*note) : Record();
    }
    return request;
}

std::optional<std::string> keepDraft(const PageContext& context, Function function,
                                     const FormRequest& request) {
    Record note = headerOf(context, function, DRAFT_FIELD);
    for (const auto& [name, value] : request.fields) {
        if (name != END_FIELD && name != DRAFT_FIELD) {
            note.push_back(name);
            note.push_back(value);
        }
    }
    // The draft before it may be gone.
    const auto kept = keepNote(context.requester, note, request.draftId);
    return kept || request.draftId.empty() ? kept : keepNote(context.requester, note);
}

std::optional<std::string> claimDraft(const PageContext& context, Function function,
                                      const FormRequest& request) {
    return keepNote(context.requester, headerOf(context, function, DONE_FIELD), request.draftId);
}

std::optional<std::string> keepDone(const PageContext& context, Function function,
                                    const FormRequest& request) {
    Record note = headerOf(context, function, DONE_FIELD);
    note.insert(note.end(), request.done.begin(), request.done.end());
    return keepNote(context.requester, note, request.draftId);
}

int libraryStateOf(Step step) {
    const StepState* const state = find(step);
    return state != nullptr ? state->libraryState : 0;
}

std::string pageStateOf(Step next) {
    const StepState* const state = find(next);
    return state != nullptr ? std::to_string(state->carried) : "";
}

Component makePageState(Step next) {
    return std::make_unique<HiddenField>(HTMLPage::FORM_PAGE_STATE, pageStateOf(next));
}

}  // namespace Console
