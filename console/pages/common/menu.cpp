// The menu frame: the top menus, and under each the functions that the user may use.

#include <iostream>

#include "framework/access/Rights.h"
#include "framework/component/AddedAttributes.h"
#include "framework/page/Program.h"
#include "framework/page/SessionMain.h"
#include "gui/MenuData.h"
#include "gui/ORVGUIUtil.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

/// A top menu with its functions. The menu has the same sections for every user: one without
/// functions is printed too.
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

/// The landmark around the top menus.
class Navigation : public ComponentGroup {
public:
    void printHTML() const override {
        std::cout << "<nav" << attribute("aria-label", text(TEXT_FUNCTIONS)) << ">\n";
        ComponentGroup::printHTML();
        std::cout << "</nav>\n";
    }
};

class MenuMain : public SessionMain {
public:
    explicit MenuMain(FormInfo& form) : SessionMain(form, Module::MENU) {}

protected:
    void showPage(PageContext& context) override {
        beginPage(TEXT_FUNCTIONS);
        auto menus = std::make_unique<Navigation>();
        for (int menu = 0; menu < MenuData::TOP_MENUS; ++menu) {
            menus->add(makeTopMenu(menu, context.requester));
        }
        printPage(std::move(menus));
    }

private:
    Component makeTopMenu(int menu, CGIRequester& requester) {
        auto made =
            std::make_unique<TopMenu>(topMenuName(menu, m_language), isCurrent("tid", menu));
        for (const FunctionEntry& entry : FUNCTIONS) {
            if (entry.topMenu == menu && mayUse(requester, m_authority, entry.function)) {
                made->add(makeFunctionLink(entry));
            }
        }
        return made;
    }

    /// The link loads all frames again, because menu and information strip show the function.
    Component makeFunctionLink(const FunctionEntry& entry) {
        return makeTab(
            std::string(FRAME_PATH) + '?' + FUNCTION_FIELD + '=' + std::to_string(entry.function),
            text(entry.title), isCurrent("mid", entry.function), "_top");
    }

    /// True for the menu or function that the frameset's address names.
    bool isCurrent(const char* field, int number) const {
        return getField(field) == std::to_string(number);
    }
};

}  // namespace

}  // namespace Console

int main() {
    return Console::runProgram<Console::MenuMain>();
}
