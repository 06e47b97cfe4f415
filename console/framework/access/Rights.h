#pragma once

#include <vector>

#include "framework/access/Functions.h"
#include "gui/CGIAuthority.h"
#include "gui/CGIRequester.h"
#include "gui/JudgeAuthority.h"

namespace Console {

/// Whether a user may use a function, on a partition or on none in particular. Any session may use
/// a function whose entry says so. For others the library's table of rights decides, and the rule
/// that lets technical staff in during maintenance.
bool mayUse(ORVLib::Gui::CGIRequester& requester, const ORVLib::Gui::CGIAuthority& authority,
            Function function, int partition = ORVLib::Gui::JudgeAuthority::NO_PARTITION);

/// The names of the roles that may use a function outside maintenance. None for a function of any
/// session.
std::vector<Text> rolesFor(Function function);

}  // namespace Console
