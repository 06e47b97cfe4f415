#pragma once

namespace ORVLib::Gui {

/// What a page does with its form. The page owns the number and keeps it alive while its fields
/// print; a field without one is editable. Any number that is not named here shows the fields
/// read-only, as CONFIRM_MODE does, but carries nothing.
enum DisplayMode {
    EDIT_MODE = 2,
    CONFIRM_MODE = 3,  // read-only; some fields carry their values on in hidden inputs
};

}  // namespace ORVLib::Gui
