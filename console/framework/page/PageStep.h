#pragma once

#include <memory>
#include <optional>
#include <string>

#include "framework/access/Functions.h"
#include "framework/access/Module.h"
#include "framework/component/Components.h"
#include "framework/input/Input.h"
#include "framework/page/PageContext.h"
#include "gui/CGIRequester.h"
#include "gui/FormInfo.h"

/// The steps of a page that the user confirms before it changes anything:
///
///     Request with page_state              Step         Forms of the page then carry
///     none or another one, or a GET        SHOW         3
///     any with the field "back"            EDIT_AGAIN   3
///     3                                    CONFIRM      4; or 3 when the input is wrong
///     4                                    APPLY        none; or 3 when the input is wrong
///     not SHOW, but without the token      CUT_OFF      3
///     a GET with "draft"                   CONFIRM or EDIT_AGAIN as above; GONE without it
///     a GET with "done"                    DONE         none; GONE without what was done
///
/// A page without confirmation carries 4 in place of 3.
///
/// A POST sends the browser on to a GET, so that its pages can be reloaded, and left with "back"
/// without sending anything again. The board keeps what the GET shows as a note of the session
/// (Notes.h): the draft of a form, or what was done. When it does not keep it, or refuses the
/// change, the answer to the POST is the page itself.
namespace Console {

enum class Step {
    SHOW,        ///< show the form with the present settings
    CUT_OFF,     ///< the same, because the request is not a whole form of this session
    GONE,        ///< the same, because the board no longer has the draft, or what was done
    EDIT_AGAIN,  ///< show the form with the input, after a confirmation
    CONFIRM,     ///< show the input, to be confirmed
    APPLY,       ///< apply the input
    DONE         ///< show what was applied
};

/// The field of the button that leads back from a confirmation.
constexpr char BACK_FIELD[] = "back";

/// The last field of every form that changes anything, and its marker.
constexpr char END_FIELD[] = "form_end";

/// That field. A form without it did not arrive whole, and its missing fields do not count as
/// empty. Its value is the session's CSRF token.
Component makeFormEnd(const ORVLib::Gui::CGIRequester& requester);

/// True for a form that is whole and of the requester's session. Any other form must not change
/// anything; the trace log says that `module` refused it.
bool isOwnForm(const ORVLib::Gui::FormInfo& form, const ORVLib::Gui::CGIRequester& requester,
               Module module);

/// The field of an address, and of a form, that names the draft; and that of what was done.
constexpr char DRAFT_FIELD[] = "draft";
constexpr char DONE_FIELD[] = "done";

/// What a request asks of a page.
struct FormRequest {
    Step step;
    Fields fields;        ///< of the request, or of the draft
    std::string draftId;  ///< empty without a draft
    Record done;          ///< what the page kept of the change
};
FormRequest readFormRequest(const PageContext& context, Function function);

/// Keeps a form as a draft, in the place of the one that it carries. Returns the ID; none when the
/// board does not keep it.
std::optional<std::string> keepDraft(const PageContext& context, Function function,
                                     const FormRequest& request);

/// Takes the draft that a form carries, before the form is applied, so that it is applied once.
/// Returns the ID of the note that takes the draft's place; none when somebody else has taken it.
/// REQUIRES: the form carries one.
std::optional<std::string> claimDraft(const PageContext& context, Function function,
                                      const FormRequest& request);

/// Keeps what was done, in the place of the note that claimDraft() returned. Returns the ID; none
/// when the board does not keep it.
std::optional<std::string> keepDone(const PageContext& context, Function function,
                                    const FormRequest& request);

/// The library's page state in a step: it selects makeConfigPage() for APPLY.
int libraryStateOf(Step step);

/// The field of a form that asks for CONFIRM or APPLY: its value, and the hidden field.
std::string pageStateOf(Step next);
Component makePageState(Step next);

}  // namespace Console
