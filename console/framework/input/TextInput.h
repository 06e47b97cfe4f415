#pragma once

#include <memory>
#include <string>

#include "framework/input/Input.h"
#include "gui/TextField.h"

namespace Console {

/// True for a text with a character reference in decimal. A browser sends one for a character that
/// the page's character set lacks, such as Japanese ones typed into an English page; so a text of
/// ASCII characters only is not always what its user typed.
bool hasCharacterReference(const std::string& text);

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

}  // namespace Console
