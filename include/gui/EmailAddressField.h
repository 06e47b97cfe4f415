#pragma once

#include "gui/TextField.h"

namespace ORVLib::Gui {

/// A text input for an e-mail address.
///
/// Only the mail server knows which addresses exist, so little is checked: an "@" somewhere, and
/// no dot in front or at the end.
class ORVGUI_EXPORT EmailAddressField : public TextField {
public:
    /// As TextField's, with the flag of setAllowEmpty().
    explicit EmailAddressField(const std::string& name, const std::string& value = "",
                               const std::string& form = "", int size = DEFAULT_SIZE,
                               int maxLength = DEFAULT_MAX_LENGTH, const int* displayMode = nullptr,
                               bool allowEmpty = false)
        : TextField(name, value, form, size, maxLength, displayMode), m_allowEmpty(allowEmpty) {}

    /// The flags of TextField play no part.
    bool isError() const override;

    /// Hides TextField's flag of that name.
    bool isAllowEmpty() const { return m_allowEmpty; }
    void setAllowEmpty(bool allowEmpty) { m_allowEmpty = allowEmpty; }

private:
    bool m_allowEmpty;
};

}  // namespace ORVLib::Gui
