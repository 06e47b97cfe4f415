#include "shared/ConsoleMain.h"

#include "gui/CGIRequester.h"
#include "gui/JudgeAuthority.h"
#include "shared/Board.h"
#include "shared/OuterPage.h"

using namespace ORVLib::Gui;

namespace Console {

int ConsoleMain::execMain() {
    getCookie();
    guiCheckSession(false);
    CGIRequester requester(m_sessionId.c_str());
    requireRight(requester);

    m_messages = std::make_unique<MessageMgr>(m_language);
    m_page = std::make_unique<HTMLPage>(m_language);
    dressPage(*m_page, m_messages->getString(m_title));
    HTMLMapUtil::insertIntoMap(m_page->getMap(), HTMLPage::KEY_BODY, makeBody(requester));
    m_page->getGenerator().printHTML();
    return 0;
}

void ConsoleMain::requireRight(CGIRequester& requester) {
    const JudgeAuthority judge(&m_authority, m_function);
    const int verdict = judge.preCheckDisplayMode(requester);
    const bool allowed = verdict == JudgeAuthority::UNDECIDED ? judge.getDisplayMode() != 0
                                                              : verdict == JudgeAuthority::ALLOWED;
    if (!allowed) {
        errorExit("Error", ERROR_NOT_AUTHORISED);
    }
}

}  // namespace Console
