#pragma once

#include <string>

#include "framework/input/MomentInput.h"
#include "gui/DateField.h"

namespace Console {

/// A date from 2000 to 2037, the range of the board's calendar. Its text is like "2028-02-29".
class DateInput : public MomentInput<ORVLib::Gui::DateField> {
public:
    explicit DateInput(const std::string& name, bool allowEmpty = false)
        : MomentInput(name, '-', allowEmpty, TEXT_YEAR) {}

private:
    bool isGood() const override;
};

}  // namespace Console
