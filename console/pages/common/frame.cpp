// The console's frameset: information strip, menu and the page of a function.

#include "framework/access/Functions.h"
#include "framework/backend/Board.h"
#include "framework/component/PageChrome.h"
#include "framework/input/Form.h"
#include "framework/page/PageMain.h"
#include "framework/page/Program.h"
#include "gui/ORVGUIUtil.h"
#include "gui/OutlineFramePage.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int MODULE = 0x905;

class FrameMain : public PageMain {
public:
    explicit FrameMain(FormInfo& form) : PageMain(form, MODULE) {}

protected:
    int execMain() override {
        getCookie();
        guiCheckSession(false);
        m_messages = std::make_unique<MessageMgr>(m_language);
        auto page = std::make_unique<OutlineFramePage>(m_language, *m_messages);
        setTitleAndStyle(*page, m_messages->getString(TEXT_CONSOLE));
        page->getGenerator().setSkeletonFileName(skeletonPath("skeleton_frame.txt"));
        lead(*page, wantedFunction());
        page->createPage();
        page->getGenerator().printHTML();
        return 0;
    }

private:
    /// What the request asks for. Whether the user may use it is for that page to say.
    const FunctionEntry& wantedFunction() const {
        const std::string wanted = fieldOf(*m_formInfo, FUNCTION_FIELD);
        for (const FunctionEntry& entry : FUNCTIONS) {
            if (entry.topMenu != NO_MENU && std::to_string(entry.function) == wanted) {
                return entry;
            }
        }
        return FUNCTIONS[0];
    }

    void lead(OutlineFramePage& page, const FunctionEntry& entry) {
        page.setFunctionPath(ORVGUIUtil::getCGIPath(entry.function));
        page.makeMenuPath(entry.topMenu, entry.function);
        page.makeInfoPath(topMenuName(entry.topMenu, m_language, *m_messages),
                          m_messages->getString(entry.title), "");
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::FrameMain>();
}
