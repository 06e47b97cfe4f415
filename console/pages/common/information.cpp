// The information strip: where in the menu the user is, who he is, and the way out.

#include "framework/backend/Board.h"
#include "framework/component/Components.h"
#include "framework/component/SkeletonPart.h"
#include "framework/input/Form.h"
#include "framework/page/PageMain.h"
#include "framework/page/Program.h"
#include "gui/CGIRequester.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int MODULE = 0x907;

class InformationMain : public PageMain {
public:
    explicit InformationMain(FormInfo& form) : PageMain(form, MODULE) {}

protected:
    int execMain() override {
        getCookie();
        guiCheckSession(false);
        beginPage(TEXT_CONSOLE);
        CGIRequester requester(m_sessionId.c_str());
        auto strip = std::make_unique<SkeletonPart>("skeleton_information.txt");
        strip->putText("console", m_messages->getString(TEXT_CONSOLE));
        strip->putText("place", place());
        strip->putText("user_label", m_messages->getString(TEXT_USER_NAME));
        strip->putText("user", readUserName(requester));
        strip->put("logout",
                   makeLink("/common/logout.cgi", m_messages->getString(TEXT_LOGOUT), "_top"));
        printPage(std::move(strip));
        return 0;
    }

private:
    /// The names that the frameset's address brings, as a path.
    std::string place() const {
        std::string path;
        for (const char* const field : {"menu0", "menu1", "menu2"}) {
            const std::string name = fieldOf(*m_formInfo, field);
            if (!name.empty()) {
                path += (path.empty() ? "" : " > ") + name;
            }
        }
        return path;
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::InformationMain>();
}
