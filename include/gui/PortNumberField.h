#pragma once

#include "gui/TextField.h"

namespace ORVLib::Gui {

/// A text input for a TCP or UDP port: decimal digits, no sign and no blanks.
class ORVGUI_EXPORT PortNumberField : public TextField {
public:
    /// Ends of the ranges that isError() knows.
    static constexpr int LAST_WELL_KNOWN_PORT = 1023;
    static constexpr int LAST_PORT = 65535;

    /// As TextField's, with the flags and the limit that are set below.
    explicit PortNumberField(const std::string& name, const std::string& value = "",
                             const std::string& form = "", int size = DEFAULT_SIZE,
                             int maxLength = DEFAULT_MAX_LENGTH, const int* displayMode = nullptr,
                             bool allowWellKnownPorts = false, bool allowEmpty = false,
                             int maximumPort = LAST_PORT)
        : TextField(name, value, form, size, maxLength, displayMode),
          m_allowWellKnownPorts(allowWellKnownPorts),
          m_allowEmpty(allowEmpty),
          m_maximumPort(maximumPort) {}

    /// The flags of TextField play no part. Port 0 is always refused.
    bool isError() const override;

    /// Accept the ports 1 to 1023 as well.
    bool isAllowWellKnownPorts() const { return m_allowWellKnownPorts; }
    void setAllowWellKnownPorts(bool allow) { m_allowWellKnownPorts = allow; }

    /// Hides TextField's flag of that name.
    bool isAllowEmpty() const { return m_allowEmpty; }
    void setAllowEmpty(bool allowEmpty) { m_allowEmpty = allowEmpty; }

    /// Highest valid port.
    int getMaximumPort() const { return m_maximumPort; }
    void setMaximumPort(int maximumPort) { m_maximumPort = maximumPort; }

private:
    bool m_allowWellKnownPorts;
    bool m_allowEmpty;
    int m_maximumPort;
};

}  // namespace ORVLib::Gui
