#pragma once

#include <string>

#include "framework/input/MomentInput.h"
#include "gui/TimeField.h"

namespace Console {

/// A time of day. Its text is like "23:59:00".
class TimeInput : public MomentInput<ORVLib::Gui::TimeField> {
public:
    explicit TimeInput(const std::string& name, bool allowEmpty = false)
        : MomentInput(name, ':', allowEmpty, TEXT_HOUR) {}

private:
    bool isGood() const override;
};

}  // namespace Console
