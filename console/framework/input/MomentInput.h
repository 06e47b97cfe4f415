#pragma once

#include <string>

#include "framework/component/PageText.h"
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

    std::string getBoxName(std::size_t box) const override {
        return text(static_cast<Text>(m_firstBoxName + static_cast<int>(box)));
    }

protected:
    /// The names of the boxes are three texts with successive numbers.
    MomentInput(const std::string& name, char separator, bool allowEmpty, Text firstBoxName)
        : BoxesInput(name, 3, separator, allowEmpty), m_firstBoxName(firstBoxName) {}

    /// The field with the text that was typed, to check it.
    Field makeField() const {
        return Field(getName(), "", FORM_NAME, getValue(0), getValue(1), getValue(2));
    }

private:
    Text m_firstBoxName;
};

}  // namespace Console
