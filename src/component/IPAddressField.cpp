#include "gui/IPAddressField.h"

#include "base/Numbers.h"
#include "base/Output.h"
#include "component/Attributes.h"
#include "component/Validation.h"
#include "gui/MessageMgr.h"

namespace ORVLib::Gui {

void IPAddressField::setAddress(int index, int number) {
    m_error = m_error || number < 0 || number > UINT8_MAX;
    m_address[boxOf(index)] = std::to_string(number);
}

void IPAddressField::setAddress(int index, std::string text) {
    if (!text.empty() && isAllDigits(text)) {
        setAddress(index, Numbers::readInt(text.c_str()));
        return;
    }
    m_error = true;
    MessageMgr::convertHTML(text);
    m_address[boxOf(index)] = std::move(text);
}

// Programs that were built when there was one form of setAddress() for bytes link this name.
extern "C" ORVGUI_EXPORT void orvguiSetAddress(
    IPAddressField* field,
    const unsigned char* address) __asm__("_ZN6ORVLib3Gui14IPAddressField10setAddressEPKh");

void orvguiSetAddress(IPAddressField* field, const unsigned char* address) {
    field->setAddress(address);
}

void IPAddressField::setBytes(const unsigned char* address) {
    for (int i = 0; address != nullptr && i < ADDR_BYTE_SIZE; ++i) {
        setAddress(i, address[i]);
    }
}

void IPAddressField::setOnFocusFunction(std::string function, std::string arguments) {
    m_onFocus = callAttribute("onFocus", function, arguments);
}

void IPAddressField::printHTML() const {
    Output output;
    for (int i = 0; i < ADDR_BYTE_SIZE; ++i) {
        printBox(output, {SIZE, MAX_LENGTH, getAddress(i), i, " style=\"width:30px;\""}, getName(),
                 m_onFocus, m_displayMode);
        if (i < ADDR_BYTE_SIZE - 1) {
            output << "&nbsp;.\n";
        }
    }
    output.print();
}

bool IPAddressField::isError() const {
    return m_error;
}

}  // namespace ORVLib::Gui
