#pragma once

#include <string>
#include <utility>
#include <vector>

#include "shared/Input.h"

namespace Console {

/// Text boxes that make up one text, such as an address or a date. Named with the input's name
/// and the number of the box.
class BoxesInput : public Input {
public:
    void setText(const std::string& text) override;
    void submit(const ORVLib::Gui::FormInfo& form) override;
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
    bool isAllowedToBeEmpty() const { return m_allowEmpty; }

    /// Print a box, and the first of them, with what was typed. The library's address fields, which
    /// check it, print what they made of it.
    void printBox(std::size_t number, int maxLength) const;
    void printBoxes(std::size_t count, int maxLength) const;

    /// True when each box holds digits, `most` of them at the most.
    bool areDigits(std::size_t most) const;

    /// The boxes as a text, each with at least `digits` digits. Empty when nothing is in them.
    std::string join(std::size_t digits) const;

private:
    std::vector<std::string> m_boxes;
    char m_separator;
    bool m_allowEmpty;
};

/// The IPv4 address of a computer.
class AddressInput : public BoxesInput {
public:
    explicit AddressInput(const std::string& name, bool allowEmpty = false);

    std::string getText() const override;
    bool isError() const override;
    void print() const override;
};

/// An IPv4 address with its mask bits: two texts of a record.
class MaskedAddressInput : public BoxesInput {
public:
    explicit MaskedAddressInput(const std::string& name);

    /// The address, a slash and the mask bits.
    void setText(const std::string& text) override;
    std::string getText() const override;
    void read(RecordReader& record) override;
    void write(Record& record) const override;
    bool isError() const override;
    void print() const override;

private:
    std::string address() const;
    std::string maskBits() const;
};

/// A date from 2000 to 2037, the days that the board's calendar knows; "2028-02-29" as a text.
class DateInput : public BoxesInput {
public:
    explicit DateInput(const std::string& name, bool allowEmpty = false);

    std::string getText() const override;
    bool isError() const override;
    void print() const override;
};

/// A time of day, "23:59:00" as a text.
class TimeInput : public BoxesInput {
public:
    explicit TimeInput(const std::string& name, bool allowEmpty = false);

    std::string getText() const override;
    bool isError() const override;
    void print() const override;
};

}  // namespace Console
