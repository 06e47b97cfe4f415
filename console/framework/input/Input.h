#pragma once

#include <memory>
#include <string>
#include <utility>

#include "framework/backend/RecordReader.h"
#include "gui/FormInfo.h"

namespace Console {

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
    virtual void write(Record& record) const { record.push_back(getText()); }

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

    /// The name of one of the fields of an input that has several.
    std::string fieldName(std::size_t number) const { return m_name + std::to_string(number); }

    /// Prints a hidden field with what a person may have typed.
    static void printHidden(const std::string& name, const std::string& value);

private:
    std::string m_name;
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

}  // namespace Console
