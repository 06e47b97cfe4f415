#pragma once

#include "gui/TextField.h"

namespace ORVLib::Gui {

/// A text input for a host name or a dotted IPv4 address.
///
/// A text of digits, dots and blanks is taken as an address: up to four numbers of 0 to 255, with
/// runs of dots counting as one ("10.1" is accepted, as resolvers do), no blanks. Anything else is
/// a host name, which is left to the resolver to judge.
class ORVGUI_EXPORT InetAddressField : public TextField {
public:
    /// As TextField's, with the flag of setAllowEmpty().
    explicit InetAddressField(const std::string& name, const std::string& value = "",
                              const std::string& form = "", int size = DEFAULT_SIZE,
                              int maxLength = DEFAULT_MAX_LENGTH, const int* displayMode = nullptr,
                              bool allowEmpty = false)
        : TextField(name, value, form, size, maxLength, displayMode), m_allowEmpty(allowEmpty) {}

    /// The flags of TextField play no part. A dot in front or at the end is refused in both kinds.
    bool isError() const override;

    /// Hides TextField's flag of that name.
    bool isAllowEmpty() const { return m_allowEmpty; }
    void setAllowEmpty(bool allowEmpty) { m_allowEmpty = allowEmpty; }

private:
    bool m_allowEmpty;
};

}  // namespace ORVLib::Gui
