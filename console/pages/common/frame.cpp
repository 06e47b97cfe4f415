// The address of the console and its functions. With frames it has the frameset: information strip,
// menu and the page of a function. Otherwise it leads to that page, which has the other parts
// itself.

#include "framework/access/Functions.h"
#include "framework/component/PageChrome.h"
#include "framework/page/Outline.h"
#include "framework/page/Program.h"
#include "framework/page/Redirect.h"
#include "framework/page/SessionMain.h"
#include "gui/ORVGUIUtil.h"
#include "gui/OutlineFramePage.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

class FrameMain : public SessionMain {
public:
    explicit FrameMain(FormInfo& form) : SessionMain(form, Module::FRAME) {}

protected:
    void showPage(PageContext& context) override {
        const FunctionEntry& entry = wantedFunction();
        if (!usesFrames()) {
            HTMLPage page(m_language);
            printRedirect(page, ORVGUIUtil::getCGIPath(entry.function));
            return;
        }
        OutlineFramePage page(m_language, context.messages);
        setTitleAndStyle(page, text(TEXT_CONSOLE));
        page.getGenerator().setSkeletonFileName(skeletonPath("skeleton_frame.txt"));
        putFunction(page, entry);
        page.createPage();
        page.getGenerator().printHTML();
    }

private:
    /// The function that the request names, otherwise the first. Its page checks the right to it.
    const FunctionEntry& wantedFunction() const {
        const std::string wanted = getField(FUNCTION_FIELD);
        for (const FunctionEntry& entry : FUNCTIONS) {
            if (entry.topMenu != NO_MENU && std::to_string(entry.function) == wanted) {
                return entry;
            }
        }
        return FUNCTIONS[0];
    }

    void putFunction(OutlineFramePage& page, const FunctionEntry& entry) const {
        page.setFunctionPath(ORVGUIUtil::getCGIPath(entry.function));
        page.makeMenuPath(entry.topMenu, entry.function);
        page.makeInfoPath(topMenuName(entry.topMenu, m_language), text(entry.title), "");
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::FrameMain>();
}
