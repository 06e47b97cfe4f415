#pragma once

#include <string>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// The session cookie: read from the request when it is made, printed as a "Set-Cookie" header
/// line at the skeleton's "cookie" marker.
class ORVGUI_EXPORT Cookie : public HTMLComponent {
public:
    /// Takes what the request's cookie header holds after "sid=", to its end. The header must
    /// begin with exactly that: the board sets no other cookie.
    Cookie();

    /// Prints the header line that sets the cookie for the browser's session, or with isExpired()
    /// the one that deletes it, and flushes. A session ID is printed up to its first line end or
    /// NUL: nothing in it can begin another header.
    void printHTML() const override;

    /// True when the request carried no session cookie.
    bool isError() const override;

    /// What the request brought, until another ID is set.
    const std::string& getSessionId() const { return m_sessionId; }
    void setSessionId(const std::string& sessionId) { m_sessionId = sessionId; }

    /// Whether printHTML() deletes the cookie instead of setting it.
    bool isExpired() const { return m_expired; }
    void setExpired(bool expired) { m_expired = expired; }

private:
    std::string m_sessionId;
    bool m_error = false;
    bool m_expired = false;
};

}  // namespace ORVLib::Gui
