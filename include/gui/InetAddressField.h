#pragma once

#include "gui/TextField.h"

namespace ORVLib::Gui {

/// A text input for a host name or a dotted IPv4 address.
///
/// A text of digits, dots and blanks counts as an address. It must have up to four numbers from 0
/// to 255 and no blanks; several dots in a row count as one. Fewer numbers, such as "10.1", are
/// accepted because resolvers accept them. Any other text counts as a host name, whose characters
/// are not checked: the resolver does that. In both, a dot at the start or end is an error.
///
/// @code
/// InetAddressField server("server", "10.1.256");  // isError(): 256 is no byte
/// server.setValue("mail.example.com");
/// if (!server.isError()) server.printHTML();
/// @endcode
class ORVGUI_EXPORT InetAddressField : public TextField {
public:
    /// The arguments of TextField, then the flag of setAllowEmpty().
    explicit InetAddressField(const std::string& name, const std::string& value = "",
                              const std::string& form = "", int size = DEFAULT_SIZE,
                              int maxLength = DEFAULT_MAX_LENGTH, const int* displayMode = nullptr,
                              bool allowEmpty = false)
        : TextField(name, value, form, size, maxLength, displayMode), m_allowEmpty(allowEmpty) {}

    /// True for an invalid value. TextField's flags are ignored.
    bool isError() const override;

    /// Accept an empty value. Hides TextField's flag of the same name, which has no effect here.
    bool isAllowEmpty() const { return m_allowEmpty; }
    void setAllowEmpty(bool allowEmpty) { m_allowEmpty = allowEmpty; }

private:
    bool m_allowEmpty;
};

}  // namespace ORVLib::Gui
