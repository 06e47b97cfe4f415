#pragma once

#include <cstdint>

#include "gui/CGIRequester.h"

/// What the console asks the board for.
namespace Console {

/// Information items that the console alone uses.
enum BoardItem : unsigned int {
    ITEM_OWN_REFRESH_INTERVAL = 0x02010027,  // seconds, 32 bits
    ITEM_OWN_PASSWORD = 0x02010028           // present and new password, 36 bytes each
};

/// Exception details of the board that pages tell apart.
enum BoardError : unsigned int { ERROR_LOGIN_REFUSED = 1281, ERROR_NOT_AUTHORISED = 1282 };

/// Leaves the page for the error page that the requester's last failure calls for.
[[noreturn]] void failWith(const ORVLib::Gui::CGIRequester& requester);

/// Read or write an item that is a 32-bit number. A failure ends in the error page.
std::uint32_t readNumber(ORVLib::Gui::CGIRequester& requester, unsigned int item);
void writeNumber(ORVLib::Gui::CGIRequester& requester, unsigned int item, std::uint32_t number);

}  // namespace Console
