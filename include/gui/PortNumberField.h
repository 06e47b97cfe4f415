#pragma once

#include "gui/TextField.h"

namespace ORVLib::Gui {

/// A text input for a TCP or UDP port: decimal digits without sign or blanks. Ports 1 to 1023 and
/// an empty value are invalid unless they are allowed; port 0 is always invalid.
///
/// @code
/// PortNumberField port("port", "443");
/// port.setAllowWellKnownPorts(true);
/// if (!port.isError()) port.printHTML();
/// @endcode
class ORVGUI_EXPORT PortNumberField : public TextField {
public:
    /// The last well-known port, which a page may refuse, and the last port.
    static constexpr int LAST_WELL_KNOWN_PORT = 1023;
    static constexpr int LAST_PORT = 65535;

    /// The arguments of TextField, then those of the setters below.
    explicit PortNumberField(const std::string& name, const std::string& value = "",
                             const std::string& form = "", int size = DEFAULT_SIZE,
                             int maxLength = DEFAULT_MAX_LENGTH, const int* displayMode = nullptr,
                             bool allowWellKnownPorts = false, bool allowEmpty = false,
                             int maximumPort = LAST_PORT)
        : TextField(name, value, form, size, maxLength, displayMode),
          m_allowWellKnownPorts(allowWellKnownPorts),
          m_allowEmpty(allowEmpty),
          m_maximumPort(maximumPort) {}

    /// True for an invalid value. TextField's flags are ignored.
    bool isError() const override;

    /// Accept the ports 1 to 1023.
    bool isAllowWellKnownPorts() const { return m_allowWellKnownPorts; }
    void setAllowWellKnownPorts(bool allow) { m_allowWellKnownPorts = allow; }

    /// Accept an empty value. Hides TextField's flag of the same name, which has no effect here.
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
