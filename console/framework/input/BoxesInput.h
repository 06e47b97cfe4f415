#pragma once

#include <string>
#include <utility>
#include <vector>

#include "framework/input/Input.h"

namespace Console {

/// Text boxes that make up one text, such as an address or a date. Named with the input's name
/// and the number of the box.
class BoxesInput : public Input {
public:
    void setText(const std::string& text) override;
    void submit(const ORVLib::Gui::FormInfo& form) override;
    bool isError() const override;
    bool isEmpty() const override;
    void printCarried() const override;
    bool isGroup() const override { return true; }

protected:
    /// `separator` stands between the boxes in the text. When the input may be empty, all of its
    /// boxes are.
    BoxesInput(std::string name, std::size_t boxes, char separator, bool allowEmpty)
        : Input(std::move(name)),
          m_boxes(boxes),
          m_separator(separator),
          m_allowEmpty(allowEmpty) {}

    const std::string& box(std::size_t number) const { return m_boxes.at(number); }
    void setBox(std::size_t number, const std::string& text) { m_boxes.at(number) = text; }

    /// The text of a box as the value of a component that escapes nothing of it.
    std::string boxValue(std::size_t number) const;

    /// Print a box, and the first of them, with what was typed. The library's address fields, which
    /// check it, print what they made of it.
    void printBox(std::size_t number, int maxLength) const;
    void printBoxes(std::size_t count, int maxLength) const;

    /// True when each box holds digits, `most` of them at the most.
    bool areDigits(std::size_t most) const;

    /// The boxes as a text, each with at least `digits` digits. Empty when nothing is in them.
    std::string join(std::size_t digits) const;

private:
    /// True when the boxes, which are not all empty, hold what the input is for.
    virtual bool isGood() const = 0;

    std::vector<std::string> m_boxes;
    char m_separator;
    bool m_allowEmpty;
};

}  // namespace Console
