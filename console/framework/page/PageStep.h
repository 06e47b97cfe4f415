#pragma once

#include <memory>

#include "framework/page/PageContext.h"
#include "gui/CGIRequester.h"
#include "gui/FormInfo.h"
#include "gui/HTMLComponent.h"

namespace Console {

/// What a request wants of a page that is confirmed before it changes anything.
enum class Step {
    SHOW,        ///< the form, anew
    CUT_OFF,     ///< likewise, as what was sent is not a whole form of this session: it counts
                 ///< for nothing
    EDIT_AGAIN,  ///< the form, instead of what was to be confirmed
    CONFIRM,     ///< a look at what was sent
    APPLY        ///< what was confirmed
};

/// The field of the button that leads back from a confirmation.
constexpr char BACK_FIELD[] = "back";

/// The last field of every form that changes anything, and its marker.
constexpr char END_FIELD[] = "form_end";

/// That field: without it a form did not arrive whole, and what is missing of it must not count as
/// empty. It carries the session's token, without which a form comes from another site.
std::unique_ptr<ORVLib::Gui::HTMLComponent> makeFormEnd(const ORVLib::Gui::CGIRequester& requester);

/// True for a form that is whole and of the requester's session. Otherwise it must change nothing;
/// `module` says in the trace log which page refused it.
bool isOwnForm(const ORVLib::Gui::FormInfo& form, const ORVLib::Gui::CGIRequester& requester,
               int module);

/// Only a POST asks for anything but Step::SHOW, and only an own form is more than CUT_OFF.
Step stepOf(const PageContext& context, int module);

/// The library's state for a step. A form never carries STATE_CONFIGURE itself: what the user has
/// confirmed comes as STATE_COMPLETE.
int stateOf(Step step);

}  // namespace Console
