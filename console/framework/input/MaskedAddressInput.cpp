#include "framework/input/MaskedAddressInput.h"

#include <algorithm>
#include <iostream>

#include "framework/backend/Digits.h"
#include "framework/component/PageText.h"
#include "gui/IPAddrMaskField.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int ADDRESS_BOXES = IPAddressField::ADDR_BYTE_SIZE;  // then the box of the mask bits

}  // namespace

MaskedAddressInput::MaskedAddressInput(const std::string& name)
    : BoxesInput(name, ADDRESS_BOXES + 1, '.', false) {}

void MaskedAddressInput::setText(const std::string& text) {
    const std::size_t slash = std::min(text.find('/'), text.size());
    BoxesInput::setText(text.substr(0, slash));
    setValue(text.substr(std::min(slash + 1, text.size())), ADDRESS_BOXES);
}

std::string MaskedAddressInput::getText() const {
    return address() + '/' + maskBits();
}

std::string MaskedAddressInput::address() const {
    const std::string all = join(1);
    return all.substr(0, all.rfind('.'));
}

std::string MaskedAddressInput::maskBits() const {
    return withoutLeadingZeros(getValue(ADDRESS_BOXES));
}

void MaskedAddressInput::read(RecordReader& record) {
    const std::string address = record.next();
    setText(address + '/' + record.next());
}

void MaskedAddressInput::write(Record& record) const {
    record.push_back(address());
    record.push_back(maskBits());
}

bool MaskedAddressInput::isGood() const {
    IPAddrMaskField field(getName());
    for (int i = 0; i < ADDRESS_BOXES; ++i) {
        field.setAddress(i, getValue(static_cast<std::size_t>(i)));
    }
    field.setMaskBit(getValue(ADDRESS_BOXES));
    return !field.isError();
}

std::string MaskedAddressInput::getBoxName(std::size_t box) const {
    return box == ADDRESS_BOXES ? text(TEXT_MASK_BITS) : BoxesInput::getBoxName(box);
}

void MaskedAddressInput::print() const {
    printBoxes(ADDRESS_BOXES, IPAddressField::MAX_LENGTH);
    std::cout << "&nbsp;/\n";
    printBox(ADDRESS_BOXES, IPAddrMaskField::MASK_MAX_LENGTH);
}

}  // namespace Console
