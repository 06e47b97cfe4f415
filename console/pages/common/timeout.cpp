// Says that the session has ended. Needs none, and no daemon either.

#include "catalogue/Texts.h"
#include "framework/component/SkeletonPart.h"
#include "framework/page/PageMain.h"
#include "framework/page/Program.h"
#include "gui/CGIRequester.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int MODULE = 0x902;

class TimeoutMain : public PageMain {
public:
    explicit TimeoutMain(FormInfo& form) : PageMain(form, MODULE) {}

protected:
    int execMain() override {
        CGIRequester().getLanguage(m_language);  // English when the daemon cannot be asked
        beginPage(TEXT_SESSION_ENDED);
        auto body = std::make_unique<SkeletonPart>("skeleton_farewell.txt");
        body->putText("title", m_messages->getString(TEXT_SESSION_ENDED));
        body->putSentence("reason", m_messages->getString(TEXT_SESSION_ENDED_WHY));
        body->putText("login_label", m_messages->getString(TEXT_LOGIN));
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
