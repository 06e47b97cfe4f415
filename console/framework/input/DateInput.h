#pragma once

#include <string>

#include "framework/input/BoxesInput.h"

namespace Console {

/// A date from 2000 to 2037, the days that the board's calendar knows; "2028-02-29" as a text.
class DateInput : public BoxesInput {
public:
    explicit DateInput(const std::string& name, bool allowEmpty = false);

    std::string getText() const override;
    void print() const override;

private:
    bool isGood() const override;
};

}  // namespace Console
