#pragma once

#include "gui/TextField.h"

namespace ORVLib::Gui {

/// A text input for an e-mail address.
///
/// Only the mail server knows which addresses exist, so the check is lenient: the value must
/// contain "@", must not begin or end with a dot and must not be longer than getMaxLength() bytes.
class ORVGUI_EXPORT EmailAddressField : public TextField {
public:
    /// The arguments of TextField, then the flag of setAllowEmpty().
    explicit EmailAddressField(const std::string& name, const std::string& value = "",
                               const std::string& form = "", int size = DEFAULT_SIZE,
                               int maxLength = DEFAULT_MAX_LENGTH, const int* displayMode = nullptr,
                               bool allowEmpty = false)
        : TextField(name, value, form, size, maxLength, displayMode), m_allowEmpty(allowEmpty) {}

    /// True for an invalid address. TextField's flags are ignored.
    bool isError() const override;

    /// Accept an empty value. Hides TextField's flag of the same name, which has no effect here.
    bool isAllowEmpty() const { return m_allowEmpty; }
    void setAllowEmpty(bool allowEmpty) { m_allowEmpty = allowEmpty; }

private:
    bool m_allowEmpty;
};

}  // namespace ORVLib::Gui
