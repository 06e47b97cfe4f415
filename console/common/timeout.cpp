// Says that the session has ended. Needs none, and no daemon either.

#include "gui/AbstractMain.h"
#include "gui/CGIRequester.h"
#include "gui/FormInfo.h"
#include "shared/OuterPage.h"
#include "shared/Program.h"
#include "shared/SkeletonPart.h"
#include "shared/Texts.h"

using namespace ORVLib::Gui;

namespace {

constexpr int MODULE = 0x902;

class TimeoutMain : public AbstractMain {
public:
    explicit TimeoutMain(FormInfo& form) : AbstractMain(&form, MODULE) {}

protected:
    int execMain() override {
        CGIRequester().getLanguage(m_language);  // English when the daemon cannot be asked
        m_messages = std::make_unique<MessageMgr>(m_language);
        m_page = std::make_unique<HTMLPage>(m_language);
        Console::dressPage(*m_page, m_messages->getString(Console::TEXT_SESSION_ENDED));
        auto body = std::make_unique<Console::SkeletonPart>("skeleton_farewell.txt");
        body->putText("title", m_messages->getString(Console::TEXT_SESSION_ENDED));
        body->putSentence("reason", m_messages->getString(Console::TEXT_SESSION_ENDED_WHY));
        body->putText("login_label", m_messages->getString(Console::TEXT_LOGIN));
        HTMLMapUtil::insertIntoMap(m_page->getMap(), HTMLPage::KEY_BODY, std::move(body));
        m_page->getGenerator().printHTML();
        return 0;
    }
};

}  // namespace

int main() {
    return Console::runProgram<TimeoutMain>();
}
