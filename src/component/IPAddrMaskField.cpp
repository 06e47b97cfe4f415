#include "gui/IPAddrMaskField.h"

#include "base/Numbers.h"
#include "base/Output.h"
#include "component/Attributes.h"
#include "component/Validation.h"

namespace ORVLib::Gui {

// Programs that were built when the number was passed by value link this name.
extern "C" ORVGUI_EXPORT void orvguiSetMaskBit(IPAddrMaskField* field, int bits) __asm__(
    "_ZN6ORVLib3Gui15IPAddrMaskField10setMaskBitEi");

void orvguiSetMaskBit(IPAddrMaskField* field, int bits) {
    field->setMaskBit(bits);
}

void IPAddrMaskField::setMaskBit(const int& bits) {
    m_maskError = m_maskError || bits < MASK_VALUE_MIN || bits > MASK_VALUE_MAX;
    m_mask = std::to_string(bits);
}

void IPAddrMaskField::setMaskBit(std::string text) {
    if (!text.empty() && isAllDigits(text)) {
        setMaskBit(Numbers::readInt(text.c_str()));
        return;
    }
    m_maskError = true;
    m_mask = quoteEscaped(std::move(text));
}

void IPAddrMaskField::printHTML() const {
    if (isEditable(m_displayMode)) {
        printBoxes();
    } else if (m_showReadOnlyText) {
        printReadOnlyText();
    }
    if (isCarried(m_displayMode)) {
        printHiddenInputs();
    }
}

void IPAddrMaskField::printBoxes() const {
    for (int i = 0; i < ADDR_BYTE_SIZE; ++i) {
        output << "<input type=\"text\"";
        printSizes(IP_SIZE, IP_MAX_LENGTH);
        printNumberedValue(getAddress(i), getName(), i);
        output << '>';
        if (i < ADDR_BYTE_SIZE - 1) {
            output << "&nbsp;.";
            printLineEnd();
        }
    }
    output << "&nbsp;/";
    printLineEnd();
    output << "<input type=\"text\"";
    printSizes(MASK_SIZE, MASK_MAX_LENGTH);
    printNumberedValue(m_mask, getName(), ADDR_BYTE_SIZE);
    output << '>';
}

void IPAddrMaskField::printReadOnlyText() const {
    const char* separator = "";
    for (int i = 0; i < ADDR_BYTE_SIZE; ++i) {
        output << separator << getAddress(i);
        separator = ".";
    }
    output << '/' << m_mask << "&nbsp;";
}

void IPAddrMaskField::printHiddenInputs() const {
    printLineEnd();
    for (int i = 0; i < ADDR_BYTE_SIZE; ++i) {
        output << "<input type=\"hidden\"";
        printNumberedValue(getAddress(i), getName(), i);
        output << '>';
        printLineEnd();
    }
    output << "<input type=\"hidden\"";
    printNumberedValue(m_mask, getName(), ADDR_BYTE_SIZE);
    output << '>';
}

bool IPAddrMaskField::isError() const {
    return m_maskError || IPAddressField::isError();
}

}  // namespace ORVLib::Gui
