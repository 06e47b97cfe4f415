#pragma once

#include <string>
#include <utility>

#include "framework/input/Input.h"

namespace Console {

/// Text boxes that make up one text, such as an address or a date. Each is a field with the input's
/// name and the number of the box.
class BoxesInput : public Input {
public:
    void setText(const std::string& text) override;
    bool isError() const override;
    bool isEmpty() const override;
    bool isGroup() const override { return true; }

    /// The number of the box, from 1.
    std::string getBoxName(std::size_t box) const override;

protected:
    /// `separator` is the character between two boxes in the text. When `allowEmpty`, either all
    /// boxes are empty or none.
    BoxesInput(std::string name, std::size_t boxes, char separator, bool allowEmpty)
        : Input(std::move(name), boxes), m_separator(separator), m_allowEmpty(allowEmpty) {}

    /// The text of a box as the value of a component that escapes nothing.
    std::string boxValue(std::size_t number) const;

    /// Print a box, and the first of them, with the text that was typed. The library's address
    /// fields check the boxes but would print the number they read.
    void printBox(std::size_t number, int maxLength) const;
    void printBoxes(std::size_t count, int maxLength) const;

    /// True when each box has 1 to `most` digits.
    bool areDigits(std::size_t most) const;

    /// The boxes as a text, each with at least `digits` digits. Empty when all boxes are empty.
    std::string join(std::size_t digits) const;

private:
    std::string fieldName(std::size_t number) const override { return numberedName(number); }

    /// True when the boxes are valid. REQUIRES: they are not all empty.
    virtual bool isGood() const = 0;

    char m_separator;
    bool m_allowEmpty;
};

}  // namespace Console
