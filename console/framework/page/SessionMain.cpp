#include "framework/page/SessionMain.h"

using namespace ORVLib::Gui;

namespace Console {

int SessionMain::execMain() {
    getCookie();
    guiCheckSession(!isSessionRenewed());
    loadTexts();
    CGIRequester requester(m_sessionId.c_str());
    PageContext context{*m_formInfo, *m_messages, requester, m_authority, m_language, m_redirect};
    showPage(context);
    return 0;
}

}  // namespace Console
