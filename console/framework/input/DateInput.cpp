#include "framework/input/DateInput.h"

#include "framework/input/Form.h"
#include "gui/DateField.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr std::size_t YEAR_DIGITS = 4;
constexpr char LAST_DATE[] = "2037-12-31";

}  // namespace

DateInput::DateInput(const std::string& name, bool allowEmpty)
    : BoxesInput(name, 3, '-', allowEmpty) {}

std::string DateInput::getText() const {
    return join(2);
}

bool DateInput::isGood() const {
    if (!areDigits(YEAR_DIGITS)) {
        return false;
    }
    DateField field(getName(), "", FORM_NAME, box(0), box(1), box(2));
    field.checkDate();
    return !field.isError() && getText() <= LAST_DATE;
}

void DateInput::print() const {
    DateField(getName(), "", FORM_NAME, boxValue(0), boxValue(1), boxValue(2)).printHTML();
}

}  // namespace Console
