#pragma once

#include "framework/page/PageContext.h"
#include "framework/page/PageMain.h"

namespace Console {

/// The main object of a page that needs a session. Without a valid one, the time-out page or an
/// error page ends the process.
class SessionMain : public PageMain {
protected:
    using PageMain::PageMain;

    /// Prints the page. Texts, language and rights are the user's.
    virtual void showPage(PageContext& context) = 0;

    /// False for a page that must not keep its user's session alive.
    virtual bool isSessionRenewed() const { return true; }

private:
    int execMain() final;
};

}  // namespace Console
