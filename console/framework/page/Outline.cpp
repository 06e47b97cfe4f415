#include "framework/page/Outline.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <vector>

#include "framework/access/Rights.h"
#include "framework/backend/Board.h"
#include "framework/backend/Environment.h"
#include "framework/component/AddedAttributes.h"
#include "framework/component/PageText.h"
#include "framework/component/SkeletonPart.h"
#include "framework/page/PageStep.h"
#include "gui/MenuData.h"
#include "gui/ORVGUIUtil.h"
#include "gui/SubmitButton.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

/// A top menu with its functions. The menu has the same sections for every user: one without
/// functions is printed too.
class MenuSection : public HTMLComponent {
public:
    MenuSection(std::string name, bool current) : m_name(std::move(name)), m_current(current) {}

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

/// The landmark around the top menus. In a page, it has a link that closes it in narrow windows.
class Navigation : public ComponentGroup {
public:
    explicit Navigation(OutlineKind kind) : m_kind(kind) {}

    void printHTML() const override {
        std::cout << "<nav" << attribute("aria-label", text(TEXT_FUNCTIONS));
        if (m_kind == OutlineKind::FRAMES) {
            std::cout << ">\n";
        } else {
            std::cout << attribute("id", MENU_ID) << ">\n";
            makeLink("#content", text(TEXT_CLOSE), "", "menu_link")->printHTML();
        }
        ComponentGroup::printHTML();
        std::cout << "</nav>\n";
    }

private:
    OutlineKind m_kind;
};

/// With frames, a link loads all of them again, because menu and strip show the function.
Component makeFunctionLink(OutlineKind kind, const FunctionEntry& entry, bool isCurrent) {
    if (kind == OutlineKind::FRAMES) {
        return makeTab(
            std::string(FRAME_PATH) + '?' + FUNCTION_FIELD + '=' + std::to_string(entry.function),
            text(entry.title), isCurrent, "_top");
    }
    return makeTab(ORVGUIUtil::getCGIPath(entry.function), text(entry.title), isCurrent);
}

}  // namespace

bool usesFrames() {
    return variable("ORV_CONSOLE_FRAMES") == "1";
}

MenuPlace placeOf(Function function) {
    const bool isListed = entryOf(function).topMenu != NO_MENU;
    const std::string path = ORVGUIUtil::getCGIPath(function);
    const auto* const listed =
        std::find_if(std::begin(FUNCTIONS), std::end(FUNCTIONS), [&](const FunctionEntry& entry) {
            return isListed
                       ? entry.function == function
                       : entry.topMenu != NO_MENU && ORVGUIUtil::getCGIPath(entry.function) == path;
        });
    return listed != std::end(FUNCTIONS) ? MenuPlace{listed->topMenu, listed->function}
                                         : MenuPlace{NO_MENU, function};
}

std::string placeText(const MenuPlace& place, const std::string& title, int language) {
    return place.topMenu == NO_MENU ? title : topMenuName(place.topMenu, language) + " > " + title;
}

Component makeStrip(OutlineKind kind, CGIRequester& requester, const std::string& place) {
    auto strip = std::make_unique<SkeletonPart>("skeleton_information.txt");
    if (kind == OutlineKind::PAGE) {
        strip->put("menu", makeLink(std::string("#") + MENU_ID, text(TEXT_MENU), "", "menu_link"));
    }
    strip->putText("console", text(TEXT_CONSOLE));
    strip->putSentence("place", place);
    strip->putText("user_label", text(TEXT_USER_NAME));
    strip->putText("user", readUserName(requester));
    strip->putSentence("question", text(TEXT_ASK_UNSAVED));
    strip->put("logout", std::make_unique<SubmitButton>("logout", text(TEXT_LOGOUT)));
    strip->put(END_FIELD, makeFormEnd(requester));
    return strip;
}

Component makeMenu(OutlineKind kind, CGIRequester& requester, const CGIAuthority& authority,
                   const MenuPlace& current, int language) {
    auto menus = std::make_unique<Navigation>(kind);
    for (int menu = 0; menu < MenuData::TOP_MENUS; ++menu) {
        auto made =
            std::make_unique<MenuSection>(topMenuName(menu, language), menu == current.topMenu);
        for (const FunctionEntry& entry : FUNCTIONS) {
            if (entry.topMenu == menu && mayUse(requester, authority, entry.function)) {
                made->add(makeFunctionLink(kind, entry, entry.function == current.function));
            }
        }
        menus->add(std::move(made));
    }
    return menus;
}

}  // namespace Console
