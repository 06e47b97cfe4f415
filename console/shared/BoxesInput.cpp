#include "shared/BoxesInput.h"

#include <algorithm>
#include <iostream>

#include "gui/DateField.h"
#include "gui/IPAddrMaskField.h"
#include "gui/MessageMgr.h"
#include "gui/TextField.h"
#include "gui/TimeField.h"
#include "shared/Digits.h"
#include "shared/Form.h"
#include "shared/HostRules.h"
#include "shared/OuterPage.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char LAST_DATE[] = "2037-12-31";

// For components that escape nothing of what is in their boxes.
std::string boxValue(const std::string& typed) {
    std::string text = inputValue(typed);
    MessageMgr::convertStr(text, "\"", "&quot;");
    return text;
}

}  // namespace

void BoxesInput::setText(const std::string& text) {
    std::size_t begin = 0;
    for (std::string& box : m_boxes) {
        const std::size_t end = std::min(text.find(m_separator, begin), text.size());
        box = text.substr(begin, end - begin);
        begin = std::min(end + 1, text.size());
    }
}

void BoxesInput::submit(const FormInfo& form) {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        m_boxes[i] = fieldOf(form, fieldName(i));
    }
}

bool BoxesInput::isEmpty() const {
    return std::all_of(m_boxes.begin(), m_boxes.end(),
                       [](const std::string& box) { return box.empty(); });
}

void BoxesInput::printCarried() const {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        printHidden(fieldName(i), m_boxes[i]);
    }
}

void BoxesInput::printBox(std::size_t number, int maxLength) const {
    TextField(fieldName(number), inputValue(box(number)), FORM_NAME, maxLength + 1, maxLength)
        .printHTML();
}

void BoxesInput::printBoxes(std::size_t count, int maxLength) const {
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) {
            std::cout << "&nbsp;" << m_separator << '\n';
        }
        printBox(i, maxLength);
    }
}

bool BoxesInput::areDigits(std::size_t most) const {
    return std::all_of(m_boxes.begin(), m_boxes.end(), [most](const std::string& box) {
        return isDigits(box) && box.size() <= most;
    });
}

std::string BoxesInput::join(std::size_t digits) const {
    std::string text;
    if (isEmpty()) {
        return text;
    }
    for (const std::string& box : m_boxes) {
        const std::string number = withoutLeadingZeros(box);
        text.append(text.empty() ? 0 : 1, m_separator);
        text.append(digits - std::min(digits, number.size()), '0');
        text += number;
    }
    return text;
}

namespace {

constexpr std::size_t ADDRESS_BOXES = IPAddressField::ADDR_BYTE_SIZE;

}  // namespace

AddressInput::AddressInput(const std::string& name, bool allowEmpty)
    : BoxesInput(name, ADDRESS_BOXES, '.', allowEmpty) {}

std::string AddressInput::getText() const {
    return join(1);
}

bool AddressInput::isError() const {
    if (isEmpty()) {
        return !isAllowedToBeEmpty();
    }
    IPAddressField field(getName());
    for (std::size_t i = 0; i < ADDRESS_BOXES; ++i) {
        field.setAddress(static_cast<int>(i), box(i));
    }
    return field.isError() || !isHostAddress(getText());
}

void AddressInput::print() const {
    printBoxes(ADDRESS_BOXES, IPAddressField::MAX_LENGTH);
}

MaskedAddressInput::MaskedAddressInput(const std::string& name)
    : BoxesInput(name, ADDRESS_BOXES + 1, '.', false) {}

void MaskedAddressInput::setText(const std::string& text) {
    const std::size_t slash = std::min(text.find('/'), text.size());
    BoxesInput::setText(text.substr(0, slash));
    setBox(ADDRESS_BOXES, text.substr(std::min(slash + 1, text.size())));
}

std::string MaskedAddressInput::getText() const {
    return address() + '/' + maskBits();
}

std::string MaskedAddressInput::address() const {
    const std::string all = join(1);
    return all.substr(0, all.rfind('.'));
}

std::string MaskedAddressInput::maskBits() const {
    return withoutLeadingZeros(box(ADDRESS_BOXES));
}

void MaskedAddressInput::read(RecordReader& record) {
    const std::string address = record.next();
    setText(address + '/' + record.next());
}

void MaskedAddressInput::write(Record& record) const {
    record.add(address());
    record.add(maskBits());
}

namespace {

void setMaskedAddress(IPAddrMaskField& field, int number, const std::string& text) {
    if (number < IPAddressField::ADDR_BYTE_SIZE) {
        field.setAddress(number, text);
    } else {
        field.setMaskBit(text);
    }
}

}  // namespace

bool MaskedAddressInput::isError() const {
    IPAddrMaskField field(getName());
    for (std::size_t i = 0; i <= ADDRESS_BOXES; ++i) {
        setMaskedAddress(field, static_cast<int>(i), box(i));
    }
    return field.isError();
}

void MaskedAddressInput::print() const {
    printBoxes(ADDRESS_BOXES, IPAddressField::MAX_LENGTH);
    std::cout << "&nbsp;/\n";
    printBox(ADDRESS_BOXES, IPAddrMaskField::MASK_MAX_LENGTH);
}

DateInput::DateInput(const std::string& name, bool allowEmpty)
    : BoxesInput(name, 3, '-', allowEmpty) {}

std::string DateInput::getText() const {
    return join(2);
}

bool DateInput::isError() const {
    constexpr std::size_t YEAR_DIGITS = 4;
    if (isEmpty()) {
        return !isAllowedToBeEmpty();
    }
    if (!areDigits(YEAR_DIGITS)) {
        return true;
    }
    DateField field(getName(), "", FORM_NAME, box(0), box(1), box(2));
    field.checkDate();
    return field.isError() || getText() > LAST_DATE;
}

void DateInput::print() const {
    DateField(getName(), "", FORM_NAME, boxValue(box(0)), boxValue(box(1)), boxValue(box(2)))
        .printHTML();
}

TimeInput::TimeInput(const std::string& name, bool allowEmpty)
    : BoxesInput(name, 3, ':', allowEmpty) {}

std::string TimeInput::getText() const {
    return join(2);
}

bool TimeInput::isError() const {
    constexpr std::size_t DIGITS = 2;
    if (isEmpty()) {
        return !isAllowedToBeEmpty();
    }
    if (!areDigits(DIGITS)) {
        return true;
    }
    TimeField field(getName(), "", FORM_NAME, box(0), box(1), box(2));
    field.checkTime();
    return field.isError();
}

void TimeInput::print() const {
    TimeField(getName(), "", FORM_NAME, boxValue(box(0)), boxValue(box(1)), boxValue(box(2)))
        .printHTML();
}

}  // namespace Console
