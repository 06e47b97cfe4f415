#pragma once

#include <vector>

#include "gui/CGIAuthority.h"
#include "gui/CGIRequester.h"
#include "gui/FormInfo.h"
#include "gui/JudgeAuthority.h"
#include "gui/MessageMgr.h"

namespace Console {

/// What a page's body works with. Nothing is owned; all of it outlives the body.
struct PageContext {
    const ORVLib::Gui::FormInfo& form;
    ORVLib::Gui::MessageMgr& messages;
    ORVLib::Gui::CGIRequester& requester;
    const ORVLib::Gui::CGIAuthority& authority;
    int language;

    /// The partition the page works on, and all that the user may choose from.
    int partition = ORVLib::Gui::JudgeAuthority::NO_PARTITION;
    std::vector<int> partitions = {};
};

}  // namespace Console
