#pragma once

#include "gui/FormInfo.h"
#include "gui/HTMLMapUtil.h"

namespace Console {

/// What a request wants of a page that is confirmed before it changes anything.
enum class Step {
    SHOW,        ///< the form, anew
    CUT_OFF,     ///< likewise, as what was sent did not arrive whole: it counts for nothing
    EDIT_AGAIN,  ///< the form, instead of what was to be confirmed
    CONFIRM,     ///< a look at what was sent
    APPLY        ///< what was confirmed
};

/// The field of the button that leads back from a confirmation.
constexpr char BACK_FIELD[] = "back";

/// Puts a field under the marker "form_end", the last one of a form: without it the form did not
/// arrive whole, and what is missing of it must not count as empty.
void putFormEnd(ORVLib::Gui::ComponentMap& map);

/// Only a POST asks for anything but Step::SHOW, and only a whole form is more than CUT_OFF.
Step stepOf(const ORVLib::Gui::FormInfo& form);

/// The library's state for a step. A form never carries STATE_CONFIGURE itself: what the user has
/// confirmed comes as STATE_COMPLETE.
int stateOf(Step step);

}  // namespace Console
