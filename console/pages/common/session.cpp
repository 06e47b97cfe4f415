// How long the session lasts if nobody uses it, for the console's script. A GET does not make it
// last longer, a POST does.

#include <iostream>

#include "framework/backend/Board.h"
#include "framework/backend/Digits.h"
#include "framework/component/PageChrome.h"
#include "framework/page/PageMain.h"
#include "framework/page/PageStep.h"
#include "framework/page/Program.h"
#include "gui/CGIRequester.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

std::string readSeconds(RecordReader& reader) {
    constexpr std::size_t MOST_DIGITS = 9;
    const int seconds = readDigits(reader.next(), MOST_DIGITS);
    if (seconds < 0) {
        failDamaged();
    }
    return std::to_string(seconds);
}

class SessionStateMain : public PageMain {
public:
    explicit SessionStateMain(FormInfo& form) : PageMain(form, Module::SESSION) {}

protected:
    int execMain() override {
        getCookie();
        CGIRequester requester(m_sessionId.c_str());
        if (m_formInfo->isPostMethod()) {
            renew(requester);
        }
        readState(requester);
        HTMLPage page(m_language);
        putText(page.getMap(), "left", m_left);
        putText(page.getMap(), "timeout", m_timeout);
        page.getGenerator().setSkeletonFileName(skeletonPath("skeleton_session_state.txt"));
        page.getGenerator().printHTML();
        return 0;
    }

private:
    /// Makes the session last as any page does, for a form of the session itself.
    void renew(CGIRequester& requester) {
        if (!isOwnForm(*m_formInfo, requester, Module::SESSION)) {
            std::cout << "Status: 403 Forbidden\n";
        } else if (requester.checkSession(m_language, m_refreshInterval, &m_authority, false) ==
                       0 &&
                   requester.getErrorDetail() != ERROR_NO_SESSION) {
            throwRequesterError(requester);
        }
    }

    /// A session that has ended has 0 seconds.
    void readState(CGIRequester& requester) {
        Record state;
        if (readRecord(requester, ITEM_OWN_SESSION, state, {ERROR_NO_SESSION}) == 0) {
            RecordReader reader(state);
            m_left = readSeconds(reader);
            m_timeout = readSeconds(reader);
        }
    }

    std::string m_left = "0";
    std::string m_timeout = "0";
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::SessionStateMain>();
}
