#pragma once

#include <string>
#include <utility>
#include <vector>

#include "framework/backend/RecordReader.h"
#include "framework/input/Form.h"

namespace Console {

/// An input of a settings page. It keeps the values of its fields as the user typed them, so that
/// the form shows a wrong entry again. The library's components are made from these values when the
/// input is checked or printed.
class Input {
public:
    virtual ~Input() = default;
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    const std::string& getName() const { return m_name; }

    /// The text of the board's record. REQUIRES of getText(): isError() is false.
    virtual void setText(const std::string& text) { setValue(text); }
    virtual std::string getText() const { return getValue(); }

    /// Takes the input's texts from a record, and adds them to one. Most inputs have one text.
    virtual void read(RecordReader& record) { setText(record.next()); }
    virtual void write(Record& record) const { record.push_back(getText()); }

    /// Takes the values that the user sent.
    void submit(const Fields& fields);

    virtual bool isError() const = 0;
    virtual bool isEmpty() const { return getText().empty(); }

    /// Prints the input for the user to change.
    virtual void print() const = 0;

    /// The text of a confirmation, and the hidden fields that carry the values.
    virtual std::string getShownText() const { return getText(); }
    virtual void printCarried() const;

    /// What the input takes, other than its hint says. Empty for none.
    virtual std::string getChoices() const { return ""; }

    /// False for an input that only shows something.
    virtual bool isEditable() const { return true; }

    /// True for an input whose text must not be shown or stored.
    virtual bool isSecret() const { return false; }

    /// False for an input that only confirms another one: it is not shown as a change.
    virtual bool isSetting() const { return true; }

    /// True for several boxes or buttons: they have one legend in place of a label.
    virtual bool isGroup() const { return false; }

    /// The name of one of several boxes, such as "Month", which a screen reader says. Empty for a
    /// box with a label.
    virtual std::string getBoxName(std::size_t) const { return ""; }

protected:
    explicit Input(std::string name, std::size_t fields = 1)
        : m_name(std::move(name)), m_values(fields) {}

    const std::string& getValue(std::size_t field = 0) const { return m_values.at(field); }
    void setValue(const std::string& value, std::size_t field = 0) { m_values.at(field) = value; }
    std::size_t getFieldCount() const { return m_values.size(); }
    void addField() { m_values.emplace_back(); }

    /// The name of a field in the form. An input with several fields has numberedName() here.
    virtual std::string fieldName(std::size_t) const { return m_name; }
    std::string numberedName(std::size_t number) const { return m_name + std::to_string(number); }

    /// Prints a hidden field with a value that a person may have typed.
    static void printHidden(const std::string& name, const std::string& value);

private:
    std::string m_name;
    std::vector<std::string> m_values;
};

/// A text among the inputs that the user cannot change: it is set by the page, not by a request.
class ShownInput : public Input {
public:
    explicit ShownInput(std::string text) : Input("", 0), m_text(std::move(text)) {}

    void setText(const std::string& text) override { m_text = text; }
    std::string getText() const override { return m_text; }
    bool isError() const override { return false; }
    bool isEditable() const override { return false; }
    void print() const override;

private:
    std::string m_text;
};

}  // namespace Console
