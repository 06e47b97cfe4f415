#include "framework/access/Functions.h"

#include "gui/MenuData.h"

using namespace ORVLib::Gui;

namespace Console {

std::string topMenuName(int topMenu, int language, MessageMgr& messages) {
    constexpr int JAPANESE = 0;
    return language == JAPANESE ? messages.getString(TEXT_MENU_SYSTEM + topMenu)
                                : MenuData::getTopMenuFullName(topMenu, language);
}

}  // namespace Console
