#pragma once

#include <memory>

#include "framework/access/Module.h"
#include "framework/component/Components.h"
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
///
/// A page without confirmation carries 4 in place of 3.
namespace Console {

enum class Step {
    SHOW,        ///< show the form with the present settings
    CUT_OFF,     ///< the same, because the request is not a whole form of this session
    EDIT_AGAIN,  ///< show the form with the input, after a confirmation
    CONFIRM,     ///< show the input, to be confirmed
    APPLY        ///< apply the input
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

/// The step that a request asks for.
Step stepOf(const PageContext& context, Module module);

/// The library's page state in a step: it selects makeConfigPage() for APPLY.
int libraryStateOf(Step step);

/// The hidden field of a form that asks for CONFIRM or APPLY.
Component makePageState(Step next);

}  // namespace Console
