#pragma once

namespace ORVLib::Gui {

/// How a page shows its form. Components take a pointer to the mode, so that one variable of the
/// page switches all of them; it must outlive them. A component without a mode is editable. Any
/// other number shows the components read-only, as CONFIRM_MODE does, but without hidden inputs.
///
/// @code
/// int mode = EDIT_MODE;
/// TextField name("name", "", "", 20, 32, &mode);
/// IPAddrMaskField address("address", "", "", &mode);
/// mode = CONFIRM_MODE;  // both now print read-only
/// @endcode
enum DisplayMode {
    EDIT_MODE = 2,
    CONFIRM_MODE = 3,  // read-only; some components also print their values in hidden inputs
};

}  // namespace ORVLib::Gui
