#include "gui/InetAddressField.h"

#include "base/Tokens.h"
#include "component/Validation.h"
#include "gui/IPAddressField.h"

namespace ORVLib::Gui {

namespace {

/// True for a text of digits and dots that holds a number above 255 or more than four numbers.
bool isBadDottedNumber(const std::string& text) {
    IPAddressField address("");
    int count = 0;
    std::string_view rest(text);
    std::string_view piece;
    while (takeToken(rest, '.', piece)) {
        if (count == IPAddressField::ADDR_BYTE_SIZE) {
            return true;
        }
        address.setAddress(count++, std::string(piece));
    }
    return address.isError();
}

}  // namespace

bool InetAddressField::isError() const {
    const std::string& value = getValue();
    if (value.empty()) {
        return !m_allowEmpty;
    }
    if (startsOrEndsWith(value, '.') || isLongerThan(value, getMaxLength())) {
        return true;
    }
    const bool isHostName = value.find_first_not_of(" .0123456789") != std::string::npos;
    if (isHostName) {
        return false;
    }
    return value.find(' ') != std::string::npos || isBadDottedNumber(value);
}

}  // namespace ORVLib::Gui
