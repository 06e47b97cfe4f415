#pragma once

#include <string>

#include "framework/input/BoxesInput.h"

namespace Console {

/// A time of day, "23:59:00" as a text.
class TimeInput : public BoxesInput {
public:
    explicit TimeInput(const std::string& name, bool allowEmpty = false);

    std::string getText() const override;
    void print() const override;

private:
    bool isGood() const override;
};

}  // namespace Console
