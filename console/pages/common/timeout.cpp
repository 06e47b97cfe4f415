// Says that the session has ended, or that the user has logged out. Works without a session, and
// without the daemon.

#include "framework/access/Functions.h"
#include "framework/component/SkeletonPart.h"
#include "framework/page/PageMain.h"
#include "framework/page/Program.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

class TimeoutMain : public PageMain {
public:
    explicit TimeoutMain(FormInfo& form) : PageMain(form, Module::TIMEOUT) {}

protected:
    int execMain() override {
        const bool isLoggedOut = !getField(LOGGED_OUT_FIELD).empty();
        if (isLoggedOut) {
            chooseLanguage();
        } else {
            askLanguage();
        }
        const Text title = isLoggedOut ? TEXT_LOGGED_OUT : TEXT_SESSION_ENDED;
        beginPage(title);
        auto body = std::make_unique<SkeletonPart>("skeleton_farewell.txt");
        body->putText("title", text(title));
        if (!isLoggedOut) {
            body->putSentence("reason", text(TEXT_SESSION_ENDED_WHY));
        }
        body->putText("login_label", text(TEXT_LOGIN));
        printPage(std::move(body));
        return 0;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::TimeoutMain>(
        {false, std::nullopt, Console::Places::RESERVED});
}
