#pragma once

#include <string>
#include <vector>

#include "gui/CGIAuthority.h"
#include "gui/CGIRequester.h"
#include "gui/FormInfo.h"
#include "gui/JudgeAuthority.h"
#include "gui/MessageMgr.h"

namespace Console {

/// The request, session and user that a page is made for. Owns nothing; everything it refers to
/// outlives the page's body.
struct PageContext {
    const ORVLib::Gui::FormInfo& form;
    ORVLib::Gui::MessageMgr& messages;
    ORVLib::Gui::CGIRequester& requester;
    const ORVLib::Gui::CGIAuthority& authority;
    int language;
    std::string&
        redirect;  ///< the address that the browser is sent to in place of the page, if any

    /// The partition that the page works on, and all that the user may choose.
    int partition = ORVLib::Gui::JudgeAuthority::NO_PARTITION;
    std::vector<int> partitions = {};
};

}  // namespace Console
