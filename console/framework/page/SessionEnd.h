#pragma once

#include "framework/component/Components.h"
#include "framework/page/PageContext.h"

namespace Console {

/// The end of the body of a function's page: the warning that the session is about to end, the
/// message that it has ended, and the message that input is back. The script session.js shows them
/// when it is time; without JavaScript nothing shows. `isRenewed` says whether the page made the
/// session last longer.
Component makeSessionEnd(const PageContext& context, bool isRenewed);

}  // namespace Console
