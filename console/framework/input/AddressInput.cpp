#include "framework/input/AddressInput.h"

#include "framework/input/HostRules.h"
#include "gui/IPAddressField.h"

using namespace ORVLib::Gui;

namespace Console {

AddressInput::AddressInput(const std::string& name, bool allowEmpty)
    : BoxesInput(name, IPAddressField::ADDR_BYTE_SIZE, '.', allowEmpty) {}

bool AddressInput::isGood() const {
    IPAddressField field(getName());
    for (int i = 0; i < IPAddressField::ADDR_BYTE_SIZE; ++i) {
        field.setAddress(i, getValue(static_cast<std::size_t>(i)));
    }
    return !field.isError() && isHostAddress(getText());
}

void AddressInput::print() const {
    printBoxes(IPAddressField::ADDR_BYTE_SIZE, IPAddressField::MAX_LENGTH);
}

}  // namespace Console
