#include "framework/input/TimeInput.h"

#include "framework/input/Form.h"
#include "gui/TimeField.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr std::size_t DIGITS = 2;

}  // namespace

TimeInput::TimeInput(const std::string& name, bool allowEmpty)
    : BoxesInput(name, 3, ':', allowEmpty) {}

std::string TimeInput::getText() const {
    return join(DIGITS);
}

bool TimeInput::isGood() const {
    if (!areDigits(DIGITS)) {
        return false;
    }
    TimeField field(getName(), "", FORM_NAME, box(0), box(1), box(2));
    field.checkTime();
    return !field.isError();
}

void TimeInput::print() const {
    TimeField(getName(), "", FORM_NAME, boxValue(0), boxValue(1), boxValue(2)).printHTML();
}

}  // namespace Console
