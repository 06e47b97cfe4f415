#pragma once

#include <memory>
#include <string>

#include "gui/CGIAuthority.h"
#include "gui/Export.h"
#include "gui/HTMLPage.h"
#include "gui/MessageMgr.h"
#include "orv/OrvTrace.h"

namespace ORVLib::Gui {

class FormInfo;

/// The main object of a page program.
///
/// Derive from it, print the page in execMain(), and return exec() from main(). exec() turns every
/// exception of execMain() into an error page. A page for logged-in users calls getCookie() and
/// guiCheckSession() before it builds anything:
///
/// @code
/// class StatusMain : public AbstractMain {
/// public:
///     explicit StatusMain(FormInfo& request) : AbstractMain(&request, 7) {}
///     int execMain() override {
///         getCookie();
///         guiCheckSession(false);  // returns only with a valid session
///         HTMLPage(m_language).getGenerator().printHTML();
///         return 0;
///     }
/// };
/// @endcode
class ORVGUI_EXPORT AbstractMain {
public:
    virtual ~AbstractMain();
    AbstractMain(const AbstractMain&) = delete;
    AbstractMain& operator=(const AbstractMain&) = delete;

    /// Shows the error page with the operator message for the error number `code` and ends the
    /// process with status -1. The message is printed escaped, `title` as text.
    ///
    /// A program may override this operation. If an override returns, exec() returns -1 and
    /// guiCheckSession() returns normally: the page must then check the session itself.
    virtual void errorExit(std::string title, int code);

protected:
    /// Prints the page. Returns the program's exit status.
    virtual int execMain() = 0;

public:
    /// Runs the page: reads a large body that FormInfo left unread, then calls execMain(). Returns
    /// the result of execMain(), or -1 after an exception. Never throws. From here on the process
    /// ignores SIGPIPE and SIGXFSZ: when the browser closes the connection, the page writes a
    /// trace entry.
    int exec();

    /// As errorExit() with a number, for an exception. The code 0x700 is shown as 0xd00 with the
    /// action code in its low byte.
    void errorExit(std::string title, int code, unsigned char actionCode);

    /// Shows the error page with a message of the page's own and ends the process with status -1.
    /// `message` is printed as HTML. REQUIRES: user input in it is escaped.
    void errorExit(std::string title, std::string message);

protected:
    /// `formInfo` is the request; null for a program that reads none. It is not owned and must
    /// outlive this object. `module` is the program's number in the trace log.
    AbstractMain(FormInfo* formInfo, int module);

    /// Takes the session ID from the request's cookie. Without a session cookie nothing changes.
    void getCookie();

    /// Asks the daemon whether the session is valid. Returns 1 and fills language, refresh
    /// interval and authority when it is, otherwise returns 0. `errorCode` is set when the exchange
    /// fails. Without a session ID nothing is sent, and `*hasSession` becomes false unless
    /// `hasSession` is null. `option` is passed to the daemon, which decides its meaning: orvboardd
    /// does not extend the session when it is true, for pages that reload themselves.
    int guiCheckLogin(int& errorCode, bool* hasSession, bool option);

    /// Returns only with a valid session (but see errorExit()). Without a session, or when it has
    /// expired, shows the time-out page, deletes the cookie and ends the process with status 0. Any
    /// other failure calls errorExit(). `option` is that of guiCheckLogin().
    void guiCheckSession(bool option);

    /// Makes the page reload itself at the user's refresh interval. Adds nothing when that is 0.
    void setAutoRefresh(HTMLPage& page);

    /// The program's writer of the trace log, and its request, which may be null.
    trace::OrvTrace m_trace;
    FormInfo* m_formInfo;

    /// The derived program's texts and page. Either may be null. The destructor deletes the texts
    /// before the page.
    std::unique_ptr<MessageMgr> m_messages;
    std::unique_ptr<HTMLPage> m_page;

    /// The user's language and rights, set by the session check. Before it: English, no rights.
    int m_language = 1;
    CGIAuthority m_authority;

    /// The session ID of the request's cookie, whether there was one, and the user's refresh
    /// interval in seconds.
    std::string m_sessionId;
    bool m_hasSessionId = false;
    unsigned int m_refreshInterval = 0;

private:
    int runPage();
    [[noreturn]] void showTimeoutPage();
    [[noreturn]] void showErrorPage(HTMLPage& page, const std::string& title,
                                    std::unique_ptr<HTMLComponent> message);
    void checkOutput();
};

}  // namespace ORVLib::Gui
