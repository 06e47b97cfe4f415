#pragma once

#include <string>

#include "gui/Export.h"

namespace ORVLib::Gui {

/// The names of the six top menus. Each has a short name and a full name, both in two variants; in
/// this version they are all the same.
///
/// @code
/// for (int menu = 0; menu < MenuData::TOP_MENUS; ++menu) {
///     TextString(MenuData::getTopMenuFullName(menu, 0)).printHTML();
/// }
/// @endcode
class ORVGUI_EXPORT MenuData {
public:
    /// The number of top menus, and the size in bytes that any short name fits into.
    static constexpr int TOP_MENUS = 6;
    static constexpr int NAME_SIZE = 32;

    MenuData() = delete;

    /// The short name of a top menu, 0 to 5; empty for any other number. `variant` 0 is the first,
    /// any other number the second. Unless `out` is null, the name is also copied to it, without a
    /// NUL at its end.
    /// REQUIRES: `out` is null or has NAME_SIZE bytes, all of them zero.
    static const char* getTopMenuName(int menu, int variant, char* out);

    /// The full name of a top menu, by the same numbers.
    static std::string getTopMenuFullName(int menu, int variant);
};

}  // namespace ORVLib::Gui
