// Says that the session has ended. Works without a session, and without the daemon.

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
        askLanguage();
        beginPage(TEXT_SESSION_ENDED);
        auto body = std::make_unique<SkeletonPart>("skeleton_farewell.txt");
        body->putText("title", text(TEXT_SESSION_ENDED));
        body->putSentence("reason", text(TEXT_SESSION_ENDED_WHY));
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
