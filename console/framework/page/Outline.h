#pragma once

#include <string>

#include "framework/access/Functions.h"
#include "framework/component/Components.h"
#include "gui/CGIAuthority.h"
#include "gui/CGIRequester.h"

/// What surrounds the page of a function: the information strip, and the menu. Both are parts of
/// the page itself, or have frames of their own.
namespace Console {

/// The ID of the menu in a page, to which a link of the strip leads in narrow windows.
constexpr char MENU_ID[] = "menu";

/// True when the console has frames: the environment variable `ORV_CONSOLE_FRAMES` is "1".
bool usesFrames();

/// A place in the menu. A page that the menu does not list has the place of the page that leads
/// there.
struct MenuPlace {
    int topMenu;
    int function;
};
MenuPlace placeOf(Function function);

/// The place in words, such as "System > Event list". `title` is that of the page.
std::string placeText(const MenuPlace& place, const std::string& title, int language);

/// Where strip and menu are: in frames of their own, or in the page of the function.
enum class OutlineKind { FRAMES, PAGE };

/// The information strip: the place, the user's name, and the button to log out. Throws when the
/// board does not tell the name.
Component makeStrip(OutlineKind kind, ORVLib::Gui::CGIRequester& requester,
                    const std::string& place);

/// The menu: the top menus, and under each the functions that the user may use.
Component makeMenu(OutlineKind kind, ORVLib::Gui::CGIRequester& requester,
                   const ORVLib::Gui::CGIAuthority& authority, const MenuPlace& current,
                   int language);

}  // namespace Console
