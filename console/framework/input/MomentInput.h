#pragma once

#include <string>

#include "framework/input/BoxesInput.h"
#include "framework/input/Form.h"

namespace Console {

/// A date or a time of day: three boxes that the library's `Field` checks and prints.
template <typename Field>
class MomentInput : public BoxesInput {
public:
    std::string getText() const override {
        constexpr std::size_t DIGITS = 2;
        return join(DIGITS);
    }

    void print() const override {
        Field(getName(), "", FORM_NAME, boxValue(0), boxValue(1), boxValue(2)).printHTML();
    }

protected:
    MomentInput(const std::string& name, char separator, bool allowEmpty)
        : BoxesInput(name, 3, separator, allowEmpty) {}

    /// The field with the text that was typed, to check it.
    Field makeField() const {
        return Field(getName(), "", FORM_NAME, getValue(0), getValue(1), getValue(2));
    }
};

}  // namespace Console
