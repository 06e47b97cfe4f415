#include "shared/Input.h"

#include <algorithm>
#include <charconv>
#include <iostream>

#include "gui/CheckBox.h"
#include "gui/DateField.h"
#include "gui/HiddenField.h"
#include "gui/IPAddrMaskField.h"
#include "gui/MessageMgr.h"
#include "gui/PortNumberField.h"
#include "gui/RadioButton.h"
#include "gui/SelectMenu.h"
#include "gui/TextString.h"
#include "gui/TimeField.h"
#include "shared/Digits.h"
#include "shared/Form.h"
#include "shared/HostRules.h"
#include "shared/OuterPage.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr char CHECKED[] = "1";
constexpr char LAST_DATE[] = "2037-12-31";
constexpr int WIDEST_BOX = 40;  // in characters; a longer text scrolls in it

void printHidden(const std::string& name, const std::string& value) {
    HiddenField(name, inputValue(value)).printHTML();
}

std::string numbered(const std::string& name, std::size_t number) {
    return name + std::to_string(number);
}

// For components that escape nothing of what is in their boxes.
std::string boxValue(const std::string& typed) {
    std::string text = inputValue(typed);
    MessageMgr::convertStr(text, "\"", "&quot;");
    return text;
}

std::string labelText(const std::string& label) {
    std::string text = label;
    MessageMgr::convertHTML(text);
    return text;
}

std::string withoutLeadingZeros(const std::string& digits) {
    const std::size_t first = digits.find_first_not_of('0');
    return first == std::string::npos ? "0" : digits.substr(first);
}

}  // namespace

bool hasCharacterReference(const std::string& text) {
    constexpr char START[] = "&#";
    std::size_t at = text.find(START);
    while (at != std::string::npos) {
        const std::size_t digits = at + 2;
        const std::size_t end = text.find_first_not_of("0123456789", digits);
        if (end != std::string::npos && end > digits && text[end] == ';') {
            return true;
        }
        at = text.find(START, digits);
    }
    return false;
}

bool TextInput::isError() const {
    return m_field->isError() ||
           (m_field->isCheckCharacters() && hasCharacterReference(m_field->getValue()));
}

void TextInput::submit(const FormInfo& form) {
    setText(fieldOf(form, getName()));
}

void TextInput::print() const {
    const std::string typed = m_field->getValue();
    m_field->setValue(inputValue(typed));
    m_field->printHTML();
    m_field->setValue(typed);
}

void TextInput::printCarried() const {
    printHidden(getName(), m_field->getValue());
}

AsciiInput::AsciiInput(const std::string& name, int maxLength, bool allowEmpty)
    : TextInput(std::make_unique<TextField>(name, "", FORM_NAME, std::min(maxLength, WIDEST_BOX),
                                            maxLength, nullptr, false, true, allowEmpty, true)) {}

NumberInput::NumberInput(const std::string& name, int lowest, int highest)
    : TextInput(std::make_unique<TextField>(name, "", FORM_NAME,
                                            static_cast<int>(std::to_string(highest).size()) + 1,
                                            static_cast<int>(std::to_string(highest).size()))),
      m_lowest(lowest),
      m_highest(highest) {}

std::string NumberInput::getText() const {
    return withoutLeadingZeros(TextInput::getText());
}

bool NumberInput::isError() const {
    const std::string text = TextInput::getText();
    if (TextInput::isError() || !isDigits(text)) {
        return true;
    }
    int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec != std::errc() || number < m_lowest || number > m_highest;
}

void ShownInput::print() const {
    std::cout << "<span class=\"value\">";
    TextString(m_text).printHTML();
    std::cout << "</span>";
}

PortInput::PortInput(const std::string& name, bool allowEmpty)
    : TextInput(std::make_unique<PortNumberField>(name, "", FORM_NAME, 6, 5, nullptr, true,
                                                  allowEmpty)) {}

std::string PortInput::getText() const {
    const std::string typed = TextInput::getText();
    return typed.empty() ? typed : withoutLeadingZeros(typed);
}

PasswordInput::PasswordInput(const std::string& name, int maxLength)
    : Input(name), m_maxLength(maxLength) {}

void PasswordInput::submit(const FormInfo& form) {
    m_password = fieldOf(form, getName());
}

bool PasswordInput::isError() const {
    return m_password.size() > static_cast<std::size_t>(m_maxLength);
}

void PasswordInput::print() const {
    PasswordField(getName(), "", FORM_NAME, m_maxLength, m_maxLength).printHTML();
}

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
        m_boxes[i] = fieldOf(form, numbered(getName(), i));
    }
}

bool BoxesInput::isEmpty() const {
    return std::all_of(m_boxes.begin(), m_boxes.end(),
                       [](const std::string& box) { return box.empty(); });
}

void BoxesInput::printCarried() const {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        printHidden(numbered(getName(), i), m_boxes[i]);
    }
}

void BoxesInput::printBox(std::size_t number, int maxLength) const {
    TextField(numbered(getName(), number), inputValue(box(number)), FORM_NAME, maxLength + 1,
              maxLength)
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
    for (std::size_t i = 0; i < 3; ++i) {
        if (!isDigits(box(i)) || box(i).size() > YEAR_DIGITS) {
            return true;
        }
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
    for (std::size_t i = 0; i < 3; ++i) {
        if (!isDigits(box(i)) || box(i).size() > DIGITS) {
            return true;
        }
    }
    TimeField field(getName(), "", FORM_NAME, box(0), box(1), box(2));
    field.checkTime();
    return field.isError();
}

void TimeInput::print() const {
    TimeField(getName(), "", FORM_NAME, boxValue(box(0)), boxValue(box(1)), boxValue(box(2)))
        .printHTML();
}

void ChoiceInput::addOption(const std::string& value, const std::string& label) {
    m_options.push_back({value, label});
}

void ChoiceInput::submit(const FormInfo& form) {
    m_chosen = fieldOf(form, getName());
}

const ChoiceInput::Option* ChoiceInput::chosen() const {
    const auto found =
        std::find_if(m_options.begin(), m_options.end(),
                     [this](const Option& option) { return option.value == m_chosen; });
    return found != m_options.end() ? &*found : nullptr;
}

bool ChoiceInput::isError() const {
    return chosen() == nullptr;
}

std::string ChoiceInput::getShownText() const {
    const Option* const option = chosen();
    return option != nullptr ? option->label : "";
}

void ChoiceInput::printCarried() const {
    printHidden(getName(), m_chosen);
}

void MenuInput::print() const {
    constexpr int NONE = -1;
    SelectMenu menu(getName(), "", FORM_NAME, NONE);
    if (chosen() == nullptr) {
        // A browser would choose the first option otherwise, without the user.
        menu.add("", "", true);
    }
    for (const Option& option : options()) {
        menu.add(option.value, labelText(option.label), &option == chosen());
    }
    menu.printHTML();
}

void RadioInput::print() const {
    RadioButton buttons(getName(), "", FORM_NAME);
    std::size_t number = 0;
    for (const Option& option : options()) {
        buttons.add(option.value, labelText(option.label), numbered(getName(), number++),
                    &option == chosen(), false);
    }
    buttons.printHTML();
}

void ChosenInput::print() const {
    std::cout << "<span class=\"value\">";
    TextString(getShownText()).printHTML();
    std::cout << "</span>";
    printCarried();
}

void ChecksInput::addBox(const std::string& label) {
    m_boxes.push_back({label});
}

void ChecksInput::setText(const std::string& text) {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        m_boxes[i].checked = i < text.size() && text[i] == *CHECKED;
    }
}

std::string ChecksInput::getText() const {
    std::string text;
    for (const Box& box : m_boxes) {
        text += box.checked ? '1' : '0';
    }
    return text;
}

void ChecksInput::submit(const FormInfo& form) {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        m_boxes[i].checked = fieldOf(form, numbered(getName(), i)) == CHECKED;
    }
}

void ChecksInput::print() const {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        const std::string name = numbered(getName(), i);
        // A click on the label checks the box too.
        const std::string label =
            "<label for=\"" + name + "\">" + labelText(m_boxes[i].label) + "</label>";
        CheckBox box(name);
        box.add(name, CHECKED, label, name, m_boxes[i].checked);
        // No line ends between a box and its label.
        std::cout << "<span class=\"choice\">";
        box.printHTML();
        std::cout << "</span>\n";
    }
}

std::string ChecksInput::getShownText() const {
    std::string text;
    for (const Box& box : m_boxes) {
        if (box.checked) {
            text += (text.empty() ? "" : ", ") + box.label;
        }
    }
    return text.empty() ? "-" : text;
}

void ChecksInput::printCarried() const {
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        if (m_boxes[i].checked) {
            printHidden(numbered(getName(), i), CHECKED);
        }
    }
}

FlagInput::FlagInput(const std::string& name, const std::string& label, std::string otherwise)
    : ChecksInput(name), m_otherwise(std::move(otherwise)) {
    addBox(label);
}

std::string FlagInput::getShownText() const {
    return isEmpty() ? m_otherwise : ChecksInput::getShownText();
}

}  // namespace Console
