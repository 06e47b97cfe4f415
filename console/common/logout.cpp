// Ends the session: asks first, then tells the board and lets the browser forget its cookie.

#include "gui/BackendNumbers.h"
#include "gui/CGIRequester.h"
#include "gui/SubmitButton.h"
#include "shared/Board.h"
#include "shared/OuterPage.h"
#include "shared/PageMain.h"
#include "shared/Program.h"
#include "shared/SkeletonPart.h"
#include "shared/Texts.h"

using namespace ORVLib::Gui;

namespace {

constexpr int MODULE = 0x901;

class LogoutMain : public Console::PageMain {
public:
    explicit LogoutMain(FormInfo& form) : PageMain(form, MODULE) {}

protected:
    int execMain() override {
        getCookie();
        guiCheckSession(true);
        // A link from elsewhere must not be able to end a session: it takes a POST.
        const bool ends = m_formInfo->isPostMethod();
        if (ends) {
            endSession();
        }
        beginPage(Console::TEXT_LOGOUT);
        if (ends) {
            Console::putExpiredCookie(*m_page);
        }
        printPage(ends ? makeFarewell() : makeQuestion());
        return 0;
    }

private:
    void endSession() {
        CGIRequester requester(m_sessionId.c_str());
        if (requester.logout() == 0 && requester.getErrorDetail() != ERROR_SESSION_INVALID) {
            Console::failWith(requester);
        }
    }

    std::unique_ptr<HTMLComponent> makeQuestion() {
        auto question = std::make_unique<Console::SkeletonPart>("skeleton_logout.txt");
        question->putText("question", m_messages->getString(Console::TEXT_ASK_LOGOUT));
        question->put("submit", std::make_unique<SubmitButton>(
                                    "logout", m_messages->getString(Console::TEXT_LOGOUT)));
        return question;
    }

    std::unique_ptr<HTMLComponent> makeFarewell() {
        auto farewell = std::make_unique<Console::SkeletonPart>("skeleton_farewell.txt");
        farewell->putText("title", m_messages->getString(Console::TEXT_LOGGED_OUT));
        farewell->putText("login_label", m_messages->getString(Console::TEXT_LOGIN));
        return farewell;
    }
};

}  // namespace

int main() {
    return Console::runProgram<LogoutMain>();
}
