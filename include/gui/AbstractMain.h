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

/// The main object of every page program.
///
/// A program derives from it, does its page's work in execMain() and calls exec(), which runs that
/// work so that every exception ends in an error page. Inside execMain() a page usually calls
/// getCookie() and guiCheckSession() before it builds anything.
class ORVGUI_EXPORT AbstractMain {
public:
    virtual ~AbstractMain();
    AbstractMain(const AbstractMain&) = delete;
    AbstractMain& operator=(const AbstractMain&) = delete;

    /// Shows the error page for a message or error number, which it prints escaped, and ends the
    /// process with status -1. A program may override it; one that returns leads exec() to -1, and
    /// lets guiCheckSession() return, so that the page must look at the session itself.
    virtual void errorExit(std::string title, int code);

protected:
    /// The page's work. What it returns is the program's exit status.
    virtual int execMain() = 0;

public:
    /// Runs the page: reads a large body that the request left waiting, then execMain(). Returns
    /// what that returned, or -1 after an exception; never throws. From here on the process ignores
    /// SIGPIPE: a browser that went away is a trace entry.
    int exec();

    /// As errorExit() with a number, for an exception: the code 0x700 is shown as 0xd00 with the
    /// action code in its low byte.
    void errorExit(std::string title, int code, unsigned char actionCode);

    /// Shows the error page with a ready message and ends the process with status -1.
    /// `message` is HTML and printed as it is: nothing that a person typed may be in it unescaped.
    void errorExit(std::string title, std::string message);

protected:
    /// `formInfo` is the request; it is not owned and must outlive this object. Null is a program
    /// that reads no request. `module` names the program in the trace log.
    AbstractMain(FormInfo* formInfo, int module);

    /// Takes the session ID from the request's cookie. Without a usable cookie nothing changes.
    void getCookie();

    /// Asks the daemon whether the session is valid; on success language, refresh interval and
    /// authority are filled. Returns 1 or 0. `errorCode` is written when the daemon refuses.
    /// Without a session ID there is no exchange, and `*hasSession`, if not null, becomes false.
    /// `option` is passed on to the daemon.
    int guiCheckLogin(int& errorCode, bool* hasSession, bool option);

    /// Returns only with a valid session. Without one, or when it has expired, shows the time-out
    /// page, deletes the cookie and ends the process with status 0; on any other refusal calls
    /// errorExit().
    void guiCheckSession(bool option);

    /// Lets the page reload itself at the interval of the user; 0 adds nothing.
    void setAutoRefresh(HTMLPage& page);

    /// The program's writer of the trace log, and its request.
    trace::OrvTrace m_trace;
    FormInfo* m_formInfo;

    /// Objects of the derived program that live until the end; either may be null. The messages
    /// go first.
    std::unique_ptr<MessageMgr> m_messages;
    std::unique_ptr<HTMLPage> m_page;

    /// What the session check filled: valid after it, English and no rights before.
    int m_language = 1;
    CGIAuthority m_authority;

    /// The session's ID, when the request brought one, and the seconds after which setAutoRefresh()
    /// reloads a page.
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
