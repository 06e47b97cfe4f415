#pragma once

#include "gui/CommonDefaultPage.h"

namespace ORVLib::Gui {

/// The body of the page that answers a request without a valid session. Its load handler calls
/// onLoadFunction(), a script that the page around it must define: AbstractMain::guiCheckSession()
/// defines one that opens the time-out page in the whole window.
class ORVGUI_EXPORT TimeoutPage : public CommonDefaultPage {
public:
    /// `messages` is not owned and must outlive the page.
    explicit TimeoutPage(MessageMgr& messages);
    ~TimeoutPage() override;
};

}  // namespace ORVLib::Gui
