// Ends the session: tells the board, and makes the browser delete its cookie. The information strip
// has a form for it; a link to this page asks first.

#include "framework/access/Functions.h"
#include "framework/backend/Board.h"
#include "framework/component/PageChrome.h"
#include "framework/component/SkeletonPart.h"
#include "framework/page/PageStep.h"
#include "framework/page/Program.h"
#include "framework/page/Redirect.h"
#include "framework/page/SessionMain.h"
#include "gui/SubmitButton.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

class LogoutMain : public SessionMain {
public:
    explicit LogoutMain(FormInfo& form) : SessionMain(form, Module::LOGOUT) {}

protected:
    bool isSessionRenewed() const override { return false; }

    /// Ends the session only for a form of the session itself, so that no other site can.
    void showPage(PageContext& context) override {
        const bool isSent = m_formInfo->isPostMethod();
        const bool isEnded = isSent && isOwnForm(context.form, context.requester, Module::LOGOUT);
        if (isEnded) {
            endSession(context.requester);
        }
        beginPage(TEXT_LOGOUT);
        if (isEnded) {
            putExpiredCookie(*m_page);
            printRedirect(*m_page,
                          pathWith(TIMEOUT_PATH, {{LOGGED_OUT_FIELD, "1"},
                                                  {LANGUAGE_FIELD, std::to_string(m_language)}}));
        } else {
            printPage(makeQuestion(context.requester, isSent));
        }
    }

private:
    static void endSession(CGIRequester& requester) {
        if (requester.logout() == 0 && requester.getErrorDetail() != ERROR_NO_SESSION) {
            throwRequesterError(requester);
        }
    }

    static Component makeQuestion(const CGIRequester& requester, bool isRefused) {
        auto question = std::make_unique<SkeletonPart>("skeleton_logout.txt");
        question->putSentence("question", text(TEXT_ASK_LOGOUT));
        question->put("submit", std::make_unique<SubmitButton>("logout", text(TEXT_LOGOUT)));
        question->put(END_FIELD, makeFormEnd(requester));
        if (isRefused) {
            question->put("error", makeSentence(text(TEXT_FORM_CUT_OFF), TextString::ERROR_COLOUR));
        }
        return question;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::LogoutMain>();
}
