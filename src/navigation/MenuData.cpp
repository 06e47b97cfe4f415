#include "gui/MenuData.h"

#include <algorithm>
#include <cstring>

namespace ORVLib::Gui {

namespace {

constexpr int COLUMNS = 4;
constexpr int SHORT_NAME = 0;
constexpr int FULL_NAME = 2;

constexpr char NAMES[MenuData::TOP_MENUS][COLUMNS][MenuData::NAME_SIZE] = {
    {"System", "System", "System", "System"},
    {"Partition", "Partition", "Partition", "Partition"},
    {"Switch", "Switch", "Switch", "Switch"},
    {"User Administration", "User Administration", "User Administration", "User Administration"},
    {"Network Configuration", "Network Configuration", "Network Configuration",
     "Network Configuration"},
    {"Maintenance", "Maintenance", "Maintenance", "Maintenance"},
};

const char* nameOf(int menu, int column, int variant) {
    if (menu < 0 || menu >= MenuData::TOP_MENUS) {
        return "";
    }
    return NAMES[menu][variant == 0 ? column : column + 1];
}

}  // namespace

const char* MenuData::getTopMenuName(int menu, int variant, char* out) {
    const char* const name = nameOf(menu, SHORT_NAME, variant);
    if (out != nullptr) {
        std::copy_n(name, std::strlen(name), out);
    }
    return name;
}

std::string MenuData::getTopMenuFullName(int menu, int variant) {
    return nameOf(menu, FULL_NAME, variant);
}

}  // namespace ORVLib::Gui
