// Ends the session: asks first, then tells the board and lets the browser forget its cookie.

#include "catalogue/Texts.h"
#include "framework/backend/Board.h"
#include "framework/component/Components.h"
#include "framework/component/PageChrome.h"
#include "framework/component/SkeletonPart.h"
#include "framework/page/PageMain.h"
#include "framework/page/PageStep.h"
#include "framework/page/Program.h"
#include "gui/CGIRequester.h"
#include "gui/SubmitButton.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int MODULE = 0x901;

class LogoutMain : public PageMain {
public:
    explicit LogoutMain(FormInfo& form) : PageMain(form, MODULE) {}

protected:
    int execMain() override {
        getCookie();
        guiCheckSession(true);
        CGIRequester requester(m_sessionId.c_str());
        // Nobody elsewhere must be able to end a session: it takes a form of its own.
        const bool isSent = m_formInfo->isPostMethod();
        const bool ends = isSent && isOwnForm(*m_formInfo, requester, MODULE);
        if (ends) {
            endSession(requester);
        }
        beginPage(TEXT_LOGOUT);
        if (ends) {
            putExpiredCookie(*m_page);
        }
        printPage(ends ? makeFarewell() : makeQuestion(requester, isSent));
        return 0;
    }

private:
    static void endSession(CGIRequester& requester) {
        if (requester.logout() == 0 && requester.getErrorDetail() != ERROR_NO_SESSION) {
            throwRequesterError(requester);
        }
    }

    std::unique_ptr<HTMLComponent> makeQuestion(const CGIRequester& requester, bool isRefused) {
        auto question = std::make_unique<SkeletonPart>("skeleton_logout.txt");
        question->putText("question", m_messages->getString(TEXT_ASK_LOGOUT));
        question->put("submit",
                      std::make_unique<SubmitButton>("logout", m_messages->getString(TEXT_LOGOUT)));
        question->put(END_FIELD, makeFormEnd(requester));
        if (isRefused) {
            question->put("error", makeSentence(m_messages->getString(TEXT_FORM_CUT_OFF),
                                                TextString::ERROR_COLOUR));
        }
        return question;
    }

    std::unique_ptr<HTMLComponent> makeFarewell() {
        auto farewell = std::make_unique<SkeletonPart>("skeleton_farewell.txt");
        farewell->putText("title", m_messages->getString(TEXT_LOGGED_OUT));
        farewell->putText("login_label", m_messages->getString(TEXT_LOGIN));
        return farewell;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::LogoutMain>();
}
