#include "framework/access/Functions.h"

#include "framework/component/PageText.h"
#include "gui/MenuData.h"

using namespace ORVLib::Gui;

namespace Console {

std::string topMenuName(int topMenu, int language) {
    constexpr int JAPANESE = 0;
    return language == JAPANESE ? text(static_cast<Text>(TEXT_MENU_SYSTEM + topMenu))
                                : MenuData::getTopMenuFullName(topMenu, language);
}

}  // namespace Console
