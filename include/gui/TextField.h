#pragma once

#include "gui/FormComponent.h"
#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// A text input of one line. It checks the length of its value and, with setCheckCharacters(), its
/// characters.
///
/// When the value is printed, only its double quotes are escaped. The read-only form is a disabled
/// input, which browsers do not submit.
///
/// @code
/// const FormInfo request;
/// std::string value;
/// request.getFormData("contact", value);
/// TextField contact("contact", value, "", 30, 64);
/// contact.setAllowEmpty(true);
/// if (contact.isError()) std::cout << "At most 64 characters: ";
/// contact.printHTML();
/// @endcode
class ORVGUI_EXPORT TextField : public HTMLComponent, public FormComponent {
public:
    /// The bytes that are valid with isCheckCharacters(): "!" to "~", with isAllowBlank() also the
    /// blank.
    static constexpr int START_ASCII_HALF_ALPHANUM = 0x21;
    static constexpr int END_ASCII_HALF_ALPHANUM = 0x7e;
    static constexpr int BLANK_ASCII_HALF_ALPHANUM = 0x20;

    /// Width in characters and longest value in bytes.
    static constexpr int DEFAULT_SIZE = 20;
    static constexpr int DEFAULT_MAX_LENGTH = 255;

    /// `displayMode` points to a DisplayMode, which is not owned; null is editable.
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

    /// True for a value that is too long, that is empty without isAllowEmpty(), or that has an
    /// invalid byte with isCheckCharacters().
    bool isError() const override;

    /// Width in characters.
    int getSize() const { return m_size; }
    void setSize(int size) { m_size = size; }

    /// Longest valid value in bytes. With a negative number no value is valid, not even an empty
    /// one.
    int getMaxLength() const { return m_maxLength; }
    void setMaxLength(int maxLength) { m_maxLength = maxLength; }

    /// The DisplayMode; not owned.
    const int* getDisplayMode() const { return m_displayMode; }
    void setDisplayMode(const int* displayMode) { m_displayMode = displayMode; }

    /// A flag for the page's own use. It has no effect here.
    bool getFlag() const { return m_flag; }
    void setFlag(bool flag) { m_flag = flag; }

    /// Accept printable ASCII only. Bytes of multi-byte characters are then invalid.
    bool isCheckCharacters() const { return m_checkCharacters; }
    void setCheckCharacters(bool checkCharacters) { m_checkCharacters = checkCharacters; }

    /// Accept an empty value.
    bool isAllowEmpty() const { return m_allowEmpty; }
    void setAllowEmpty(bool allowEmpty) { m_allowEmpty = allowEmpty; }

    /// With isCheckCharacters(), accept blanks.
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
