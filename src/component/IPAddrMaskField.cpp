#include "gui/IPAddrMaskField.h"

#include "base/Numbers.h"
#include "base/Output.h"
#include "component/Attributes.h"
#include "component/Validation.h"

namespace ORVLib::Gui {

namespace {

void printHiddenInput(Output& output, const std::string& value, const std::string& name,
                      int number) {
    output << "<input type=\"hidden\"";
    printNumberedValue(output, value, name, number);
    output << '>';
}

}  // namespace

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
    Output output;
    for (int i = 0; i < ADDR_BYTE_SIZE; ++i) {
        printBoxStart(output, {IP_SIZE, IP_MAX_LENGTH, getAddress(i), i}, getName());
        output << '>';
        if (i < ADDR_BYTE_SIZE - 1) {
            output << "&nbsp;.";
            output.endLine();
        }
    }
    output << "&nbsp;/";
    output.endLine();
    printBoxStart(output, {MASK_SIZE, MASK_MAX_LENGTH, m_mask, ADDR_BYTE_SIZE}, getName());
    output << '>';
    output.print();
}

void IPAddrMaskField::printReadOnlyText() const {
    Output output;
    const char* separator = "";
    for (int i = 0; i < ADDR_BYTE_SIZE; ++i) {
        output << separator << getAddress(i);
        separator = ".";
    }
    output << '/' << m_mask << "&nbsp;";
    output.print();
}

void IPAddrMaskField::printHiddenInputs() const {
    Output output;
    output.endLine();
    for (int i = 0; i < ADDR_BYTE_SIZE; ++i) {
        printHiddenInput(output, getAddress(i), getName(), i);
        output.endLine();
    }
    printHiddenInput(output, m_mask, getName(), ADDR_BYTE_SIZE);
    output.print();
}

bool IPAddrMaskField::isError() const {
    return m_maskError || IPAddressField::isError();
}

}  // namespace ORVLib::Gui
