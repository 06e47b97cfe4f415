#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "gui/FormInfo.h"
#include "gui/PasswordField.h"
#include "gui/TextField.h"
#include "shared/Record.h"

namespace Console {

/// True for a text with a character reference in decimal. A browser sends one for a character that
/// the page's character set lacks, such as Japanese ones typed into an English page; so a text of
/// ASCII characters only is not always what its user typed.
bool hasCharacterReference(const std::string& text);

/// An input of a settings page: components of the library, and the text that stands for what is
/// in them where the board keeps it.
///
/// What a user typed is kept as it was typed, so that a wrong entry is seen again.
class Input {
public:
    virtual ~Input() = default;
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    const std::string& getName() const { return m_name; }

    /// The text as the board has it. REQUIRES of getText(): isError() is false.
    virtual void setText(const std::string& text) = 0;
    virtual std::string getText() const = 0;

    /// Takes what stands for the input from a record, and puts it into one. One text each, unless
    /// an input says otherwise.
    virtual void read(RecordReader& record) { setText(record.next()); }
    virtual void write(Record& record) const { record.add(getText()); }

    /// Takes what the user sent.
    virtual void submit(const ORVLib::Gui::FormInfo& form) = 0;

    virtual bool isError() const = 0;

    /// True when nothing is in it.
    virtual bool isEmpty() const { return getText().empty(); }

    /// Prints the input for the user to change.
    virtual void print() const = 0;

    /// What a confirmation shows, and the hidden fields that carry it on.
    virtual std::string getShownText() const { return getText(); }
    virtual void printCarried() const = 0;

    /// True when it is several boxes or buttons, which one label cannot stand for.
    virtual bool isGroup() const { return false; }

protected:
    explicit Input(std::string name) : m_name(std::move(name)) {}

private:
    std::string m_name;
};

/// A text input of any kind.
class TextInput : public Input {
public:
    /// `field` is printed and checked as it is; one that checks its characters takes no character
    /// references either.
    explicit TextInput(std::unique_ptr<ORVLib::Gui::TextField> field)
        : Input(field->getName()), m_field(std::move(field)) {}

    void setText(const std::string& text) override { m_field->setValue(text); }
    std::string getText() const override { return m_field->getValue(); }
    void submit(const ORVLib::Gui::FormInfo& form) override;
    bool isError() const override;
    void print() const override;
    void printCarried() const override;

private:
    std::unique_ptr<ORVLib::Gui::TextField> m_field;
};

/// A line of printable ASCII with blanks, which users of both languages can read.
class AsciiInput : public TextInput {
public:
    AsciiInput(const std::string& name, int maxLength, bool allowEmpty);
};

/// A decimal number. It counts without leading zeros.
class NumberInput : public TextInput {
public:
    /// Both bounds are valid numbers. REQUIRES: `highest` has nine digits at most.
    NumberInput(const std::string& name, int lowest, int highest);

    std::string getText() const override;
    bool isError() const override;

private:
    int m_lowest;
    int m_highest;
};

/// A text that stands among the inputs and cannot be changed: the page sets it, no request does.
class ShownInput : public Input {
public:
    explicit ShownInput(const std::string& text) : Input(""), m_text(text) {}

    void setText(const std::string& text) override { m_text = text; }
    std::string getText() const override { return m_text; }
    void submit(const ORVLib::Gui::FormInfo&) override {}
    bool isError() const override { return false; }
    void print() const override;
    void printCarried() const override {}

private:
    std::string m_text;
};

/// A port number, the well-known ones included. It counts without leading zeros.
class PortInput : public TextInput {
public:
    explicit PortInput(const std::string& name, bool allowEmpty = false);

    std::string getText() const override;
};

/// A password: never printed and never carried on.
class PasswordInput : public Input {
public:
    PasswordInput(const std::string& name, int maxLength);

    void setText(const std::string& text) override { m_password = text; }
    std::string getText() const override { return m_password; }
    void submit(const ORVLib::Gui::FormInfo& form) override;
    bool isError() const override;
    void print() const override;
    std::string getShownText() const override { return ""; }
    void printCarried() const override {}

private:
    std::string m_password;
    int m_maxLength;
};

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

/// One of several options: anything else that a browser may send is wrong.
class ChoiceInput : public Input {
public:
    /// `label` is what the user reads, `value` the text that stands for it.
    void addOption(const std::string& value, const std::string& label);

    void setText(const std::string& text) override { m_chosen = text; }
    std::string getText() const override { return m_chosen; }
    void submit(const ORVLib::Gui::FormInfo& form) override;
    bool isError() const override;
    std::string getShownText() const override;
    void printCarried() const override;

protected:
    explicit ChoiceInput(std::string name) : Input(std::move(name)) {}

    struct Option {
        std::string value;
        std::string label;
    };
    const std::vector<Option>& options() const { return m_options; }
    const Option* chosen() const;

private:
    std::vector<Option> m_options;
    std::string m_chosen;
};

/// A choice as a drop-down menu. When none of its options is chosen, an empty one is.
class MenuInput : public ChoiceInput {
public:
    explicit MenuInput(const std::string& name) : ChoiceInput(name) {}
    void print() const override;
};

/// A choice as radio buttons.
class RadioInput : public ChoiceInput {
public:
    explicit RadioInput(const std::string& name) : ChoiceInput(name) {}
    void print() const override;
    bool isGroup() const override { return true; }
};

/// A choice made already: shown and carried on, with nothing for the user to change.
class ChosenInput : public ChoiceInput {
public:
    explicit ChosenInput(const std::string& name) : ChoiceInput(name) {}
    void print() const override;
    bool isGroup() const override { return true; }
};

/// Check boxes. As a text: "1" or "0" for each.
class ChecksInput : public Input {
public:
    /// Without boxes; see addBox().
    explicit ChecksInput(const std::string& name) : Input(name) {}

    void addBox(const std::string& label);

    void setText(const std::string& text) override;
    std::string getText() const override;
    void submit(const ORVLib::Gui::FormInfo& form) override;
    bool isError() const override { return false; }
    bool isEmpty() const override { return getText().find('1') == std::string::npos; }
    void print() const override;
    std::string getShownText() const override;
    void printCarried() const override;
    bool isGroup() const override { return true; }

private:
    struct Box {
        std::string label;
        bool checked = false;
    };
    std::vector<Box> m_boxes;
};

/// One check box. As a text: "1" or "0".
class FlagInput : public ChecksInput {
public:
    /// `label` stands beside the box. A confirmation shows it, or `otherwise` when the box is not
    /// checked.
    FlagInput(const std::string& name, const std::string& label, std::string otherwise);

    std::string getShownText() const override;

private:
    std::string m_otherwise;
};

}  // namespace Console
