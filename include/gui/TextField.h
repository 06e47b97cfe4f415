#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A text input of one line that checks the length of its value and, on request, its characters.
///
/// Double quotes in the value are escaped when it is printed, nothing else is. The read-only form
/// is a greyed input, which a browser does not submit.
class ORVGUI_EXPORT TextField : public HTMLComponent, public FormComponent {
public:
    /// Bytes that isCheckCharacters() accepts: "!" to "~", and with isAllowBlank() the blank.
    static constexpr int START_ASCII_HALF_ALPHANUM = 0x21;
    static constexpr int END_ASCII_HALF_ALPHANUM = 0x7e;
    static constexpr int BLANK_ASCII_HALF_ALPHANUM = 0x20;

    /// Width in characters and longest value in bytes.
    static constexpr int DEFAULT_SIZE = 20;
    static constexpr int DEFAULT_MAX_LENGTH = 255;

    /// `displayMode` is a DisplayMode, not owned; null is editable.
    explicit TextField(const std::string& name, const std::string& value = "",
                       const std::string& form = "", int size = DEFAULT_SIZE,
                       int maxLength = DEFAULT_MAX_LENGTH, const int* displayMode = nullptr,
                       bool flag = false, bool checkCharacters = false, bool allowEmpty = false,
                       bool allowBlank = false)
        : FormComponent(name, value, form),
          m_size(size),
          m_maxLength(maxLength),
          m_displayMode(displayMode),
          m_flag(flag),
          m_checkCharacters(checkCharacters),
          m_allowEmpty(allowEmpty),
          m_allowBlank(allowBlank) {}

    void printHTML() const override;

    /// True for a value that is too long, empty without isAllowEmpty(), or holds a byte that
    /// isCheckCharacters() refuses.
    bool isError() const override;

    /// Width in characters.
    int getSize() const { return m_size; }
    void setSize(int size) { m_size = size; }

    /// Longest valid value in bytes; below 0 no value is valid, not even an empty one.
    int getMaxLength() const { return m_maxLength; }
    void setMaxLength(int maxLength) { m_maxLength = maxLength; }

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    /// For the page's own use.
    bool getFlag() const { return m_flag; }
    void setFlag(bool flag) { m_flag = flag; }

    /// Accept printable ASCII only; bytes of multi-byte characters are refused.
    bool isCheckCharacters() const { return m_checkCharacters; }
    void setCheckCharacters(bool checkCharacters) { m_checkCharacters = checkCharacters; }

    /// Accept a value without any character.
    bool isAllowEmpty() const { return m_allowEmpty; }
    void setAllowEmpty(bool allowEmpty) { m_allowEmpty = allowEmpty; }

    /// With isCheckCharacters(), accept blanks too.
    bool isAllowBlank() const { return m_allowBlank; }
    void setAllowBlank(bool allowBlank) { m_allowBlank = allowBlank; }

private:
    int m_size;
    int m_maxLength;
    const int* m_displayMode;
    bool m_flag;
    bool m_checkCharacters;
    bool m_allowEmpty;
    bool m_allowBlank;
};

}  // namespace ORVLib::Gui
