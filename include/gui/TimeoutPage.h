#pragma once

#include "gui/CommonDefaultPage.h"

namespace ORVLib::Gui {

/// The body of the page that a request without a living session gets: its load handler, which the
/// page around it defines, leads the whole window to the time-out page.
class ORVGUI_EXPORT TimeoutPage : public CommonDefaultPage {
public:
    /// `messages` is not owned and must outlive the page.
    explicit TimeoutPage(MessageMgr& messages);
    ~TimeoutPage() override;
};

}  // namespace ORVLib::Gui
