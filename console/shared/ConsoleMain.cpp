#include "shared/ConsoleMain.h"

#include "gui/CGIRequester.h"
#include "gui/JudgeAuthority.h"
#include "shared/Board.h"

using namespace ORVLib::Gui;

namespace Console {

int ConsoleMain::execMain() {
    getCookie();
    guiCheckSession(false);
    CGIRequester requester(m_sessionId.c_str());
    requireRight(requester);
    beginPage(m_title);
    printPage(makeBody(requester));
    return 0;
}

void ConsoleMain::errorExit(std::string title, int code) {
    AbstractMain::errorExit(std::move(title), code);
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
