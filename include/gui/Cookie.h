#pragma once

#include <string>

#include "gui/HTMLComponent.h"

namespace ORVLib::Gui {

/// The session cookie. The constructor reads it from the request; printHTML() prints a "Set-Cookie"
/// header line, at the skeleton's marker "cookie".
///
/// @code
/// const Cookie received;
/// if (!received.isError()) {
///     CGIRequester requester(received.getSessionId().c_str());
///     requester.logout();
/// }
/// HTMLPage page(1);
/// auto* const expired = new Cookie;
/// expired->setExpired(true);
/// HTMLMapUtil::insertIntoMap(page.getMap(), HTMLPage::KEY_COOKIE, expired);
/// @endcode
class ORVGUI_EXPORT Cookie : public HTMLComponent {
public:
    /// Reads the request's cookie header (HTTP_COOKIE). If it begins with "sid=", everything after
    /// that is the session ID; "sid=" after another cookie is not found. So a console must set no
    /// other cookie for the paths of its pages.
    Cookie();

    /// Prints the header line that sets a cookie for the browser's session, or, with isExpired(),
    /// the line that deletes it. The session ID is printed up to its first line end or NUL, so that
    /// it cannot inject another header.
    void printHTML() const override;

    /// True when the request carried no session cookie.
    bool isError() const override;

    /// The session ID of the request, or the one that was set since.
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
