// The menu frame: the top menus, and under each the functions that the user may use.

#include <cstdlib>
#include <iostream>

#include "framework/access/Rights.h"
#include "framework/component/Components.h"
#include "framework/input/Form.h"
#include "framework/page/PageMain.h"
#include "framework/page/Program.h"
#include "gui/MenuData.h"
#include "gui/ORVGUIUtil.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int MODULE = 0x906;

/// A top menu with its functions. One without functions for this user stands there all the same,
/// so that the menu looks alike for everybody.
class TopMenu : public HTMLComponent {
public:
    TopMenu(std::string name, bool current) : m_name(std::move(name)), m_current(current) {}

    void add(Component link) { m_links.push_back(std::move(link)); }

    void printHTML() const override {
        std::cout << "<section class=\"menu" << (m_current ? " current" : "")
                  << (m_links.empty() ? " empty" : "") << "\">\n<h2>";
        TextString(m_name).printHTML();
        std::cout << "</h2>\n<ul>\n";
        for (const Component& link : m_links) {
            std::cout << "<li>";
            link->printHTML();
            std::cout << "</li>\n";
        }
        std::cout << "</ul>\n</section>\n";
    }

    bool isError() const override { return false; }

private:
    std::string m_name;
    bool m_current;
    std::vector<Component> m_links;
};

class MenuMain : public PageMain {
public:
    explicit MenuMain(FormInfo& form) : PageMain(form, MODULE) {}

protected:
    int execMain() override {
        getCookie();
        guiCheckSession(false);
        beginPage(TEXT_CONSOLE);
        CGIRequester requester(m_sessionId.c_str());
        auto menus = std::make_unique<ComponentGroup>();
        for (int menu = 0; menu < MenuData::TOP_MENUS; ++menu) {
            menus->add(makeTopMenu(menu, requester));
        }
        printPage(std::move(menus));
        return 0;
    }

private:
    Component makeTopMenu(int menu, CGIRequester& requester) {
        auto made = std::make_unique<TopMenu>(topMenuName(menu, m_language, *m_messages),
                                              isWanted("tid", menu));
        for (const FunctionEntry& entry : FUNCTIONS) {
            if (entry.topMenu == menu && isUsable(entry, requester)) {
                made->add(makeFunctionLink(entry));
            }
        }
        return made;
    }

    bool isUsable(const FunctionEntry& entry, CGIRequester& requester) const {
        return entry.access == Access::ANY_SESSION ||
               mayUse(requester, m_authority, entry.function);
    }

    /// A function opens with its place in menu and information strip, so all frames load anew.
    Component makeFunctionLink(const FunctionEntry& entry) {
        return makeLink(
            std::string(FRAME_PATH) + '?' + FUNCTION_FIELD + '=' + std::to_string(entry.function),
            m_messages->getString(entry.title), "_top",
            isWanted("mid", entry.function) ? "current" : "");
    }

    /// What the frameset asks to be marked.
    bool isWanted(const char* field, int number) const {
        return fieldOf(*m_formInfo, field) == std::to_string(number);
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::MenuMain>();
}
