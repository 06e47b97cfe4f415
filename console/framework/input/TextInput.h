#pragma once

#include <memory>
#include <string>

#include "framework/input/Form.h"
#include "framework/input/Input.h"
#include "gui/TextField.h"

namespace Console {

/// True for a text with a decimal character reference. A browser sends one in place of a character
/// that the page's character set lacks, such as a Japanese one on an English page. So a text of
/// ASCII characters is not always the text that the user typed.
bool hasCharacterReference(const std::string& text);

/// A line of text. A field of the library checks and prints it; this one accepts every text.
class TextInput : public Input {
public:
    /// Width and length in characters.
    TextInput(const std::string& name, int width, int maxLength)
        : Input(name), m_width(width), m_maxLength(maxLength) {}

    bool isError() const override;
    void print() const override;

protected:
    using Field = std::unique_ptr<ORVLib::Gui::TextField>;

    /// Makes the field with a value. One that checks its characters refuses character references
    /// too.
    virtual Field makeField(const std::string& value) const;

    int getWidth() const { return m_width; }
    int getMaxLength() const { return m_maxLength; }

private:
    int m_width;
    int m_maxLength;
};

/// A line of printable ASCII, which users of both languages can read.
class AsciiInput : public TextInput {
public:
    AsciiInput(const std::string& name, int maxLength, bool allowEmpty, bool allowBlank = true);

private:
    Field makeField(const std::string& value) const override;

    bool m_allowEmpty;
    bool m_allowBlank;
};

/// A text that `LibraryField` checks, such as a mail address, or nothing.
template <typename LibraryField>
class OptionalInput : public TextInput {
public:
    using TextInput::TextInput;

private:
    Field makeField(const std::string& value) const override {
        constexpr bool ALLOW_EMPTY = true;
        return std::make_unique<LibraryField>(getName(), value, FORM_NAME, getWidth(),
                                              getMaxLength(), nullptr, ALLOW_EMPTY);
    }
};

}  // namespace Console
