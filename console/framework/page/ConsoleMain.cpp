#include "framework/page/ConsoleMain.h"

#include "framework/access/Rights.h"
#include "framework/backend/Board.h"

using namespace ORVLib::Gui;

namespace Console {

int ConsoleMain::execMain() {
    getCookie();
    guiCheckSession(isSelfRefreshing());
    CGIRequester requester(m_sessionId.c_str());
    beginPage(getTitle());
    PageContext context{*m_formInfo, *m_messages, requester, m_authority, m_language};
    choosePartition(context);
    requireRight(context);
    if (isSelfRefreshing()) {
        setAutoRefresh(*m_page);
    }
    printPage(makeBody(context));
    return 0;
}

void ConsoleMain::errorExit(std::string title, int code) {
    AbstractMain::errorExit(std::move(title), code);
}

void ConsoleMain::requireRight(const PageContext& context) {
    // Page and menu that disagree about who may see the page are a fault: nobody sees it then.
    const bool isAgreed = m_access == entryOf(getFunction()).access;
    if (!isAgreed || (m_access != Access::ANY_SESSION &&
                      !mayUse(context.requester, m_authority, getFunction(), context.partition))) {
        errorExit("Error", ERROR_NOT_AUTHORISED);
    }
}

}  // namespace Console
