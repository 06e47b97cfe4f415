#pragma once

#include <string>

#include "gui/Export.h"

namespace ORVLib::Gui {

/// The names of the six top menus. Each has a short and a full name in two variants, all the same
/// here.
class ORVGUI_EXPORT MenuData {
public:
    /// Top menus, and bytes that hold any short name.
    static constexpr int TOP_MENUS = 6;
    static constexpr int NAME_SIZE = 32;

    MenuData() = delete;

    /// The short name of a top menu, 0 to 5; empty for any other number. When `out` is not null,
    /// the name's characters are copied into it too, without a NUL at the end.
    /// REQUIRES: `out` is null or holds NAME_SIZE bytes of zero.
    static const char* getTopMenuName(int menu, int variant, char* out);

    /// The full name of a top menu.
    static std::string getTopMenuFullName(int menu, int variant);
};

}  // namespace ORVLib::Gui
