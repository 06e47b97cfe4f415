#include "gui/AbstractMain.h"

#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>

#include "base/Log.h"
#include "gui/BackendNumbers.h"
#include "gui/CGIRequester.h"
#include "gui/Cookie.h"
#include "gui/FormInfo.h"
#include "gui/JsFunction.h"
#include "gui/MetaTag.h"
#include "gui/TextString.h"
#include "gui/TimeoutPage.h"
#include "orv/PException.h"

namespace ORVLib::Gui {

namespace {

// Error and time-out pages declare the character set of this language, whatever the user's is.
constexpr int ERROR_PAGE_LANGUAGE = 1;

constexpr char ERROR_TITLE[] = "Error";
constexpr char STYLE_SHEET[] = "/default.css";
constexpr char FRAME_ID[] = "M-ERROR-0-00";

constexpr int INTERNAL_ERROR = 1027;
constexpr int EXCEPTION_CODE = 0x700;
constexpr int EXCEPTION_FAMILY = 0xd00;

// Families of codes, by their second byte.
constexpr int FAMILY_MASK = 0xff00;
constexpr int BACKEND_FAMILY = 0x100;
constexpr int SYSTEM_FAMILY = 0x400;
constexpr int OPERATION_IN_PROGRESS = 502;

/// The operator message that explains an error code.
int messageFor(int code) {
    switch (code & FAMILY_MASK) {
        case SYSTEM_FAMILY:
            switch (code) {
                case 1025:
                case 1026:
                    return 13;
                case INTERNAL_ERROR:
                    return 24;
                case 1028:
                    return 11;
                case 1029:
                    return 14;
                default:
                    return 20;
            }
        case BACKEND_FAMILY:
            return code == OPERATION_IN_PROGRESS ? 105 : 11;
        case EXCEPTION_CODE:
        case EXCEPTION_FAMILY:
            return 79;
        default:
            return 78;
    }
}

template <typename Component, typename... Arguments>
void put(HTMLPage& page, const std::string& marker, Arguments&&... arguments) {
    HTMLMapUtil::insertIntoMap(page.getMap(), marker,
                               std::make_unique<Component>(std::forward<Arguments>(arguments)...));
}

/// An entry takes memory, which may be what lacks.
void logLastFailure(trace::OrvTrace& trace) noexcept {
    try {
        trace.putLog(Log::ERROR_LEVEL, "Aborted: the error page failed");
    } catch (...) {
        return;
    }
}

}  // namespace

AbstractMain::AbstractMain(FormInfo* formInfo, int module)
    : m_trace(Log::CATEGORY, Log::SUB_CATEGORY, module), m_formInfo(formInfo) {}

AbstractMain::~AbstractMain() {
    m_messages.reset();
    m_page.reset();
}

int AbstractMain::exec() {
    // A browser that went away and a full log are failed writes, not the end of the process: what
    // the request left behind has to be cleared up.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return runPage();
    } catch (...) {
        // Nothing is left to show when even the error page fails.
        logLastFailure(m_trace);
        return -1;
    }
}

int AbstractMain::runPage() {
    int messageNumber = 0;
    Log::putText(m_trace, Log::PROTOCOL_LEVEL, Log::PROGRAM_STARTED, "CGI");
    try {
        if (m_formInfo != nullptr && m_formInfo->isReadSkip()) {
            m_formInfo->readSkipData();
        }
        const int status = execMain();
        checkOutput();
        return status;
    } catch (const PException& e) {
        Log::putText(m_trace, Log::ERROR_LEVEL, Log::PROGRAM_ABORTED, "main");
        errorExit(ERROR_TITLE, static_cast<int>(e.getExceptionDetail()), e.getActionCode());
    } catch (const std::exception& e) {
        m_trace.putLog(Log::ERROR_LEVEL, std::string("Aborted:") + e.what());
        messageNumber = INTERNAL_ERROR;
    } catch (...) {
        m_trace.putLog(Log::ERROR_LEVEL, "Aborted: Unknown exception");
        messageNumber = INTERNAL_ERROR;
    }
    errorExit(ERROR_TITLE, messageNumber);
    return -1;
}

/// Says in the trace log when the page did not reach the web server whole.
void AbstractMain::checkOutput() {
    if (!std::cout.flush()) {
        m_trace.putLog(Log::ERROR_LEVEL, "the page could not be written to its end");
    }
}

void AbstractMain::getCookie() {
    const Cookie cookie;
    if (!cookie.isError()) {
        m_hasSessionId = true;
        m_sessionId = cookie.getSessionId();
    }
}

int AbstractMain::guiCheckLogin(int& errorCode, bool* hasSession, bool option) {
    if (!m_hasSessionId) {
        if (hasSession != nullptr) {
            *hasSession = false;
        }
        return 0;
    }
    CGIRequester requester(m_sessionId.c_str());
    const unsigned int valid =
        requester.checkSession(m_language, m_refreshInterval, &m_authority, option);
    if (valid == 0) {
        errorCode = static_cast<int>(requester.getErrorDetail());
    }
    return static_cast<int>(valid);
}

void AbstractMain::guiCheckSession(bool option) {
    int errorCode = 0;
    bool sessionPresent = true;
    if (guiCheckLogin(errorCode, &sessionPresent, option) != 0) {
        return;
    }
    if (!sessionPresent) {
        Log::putText(m_trace, Log::ERROR_LEVEL, Log::NO_SESSION_COOKIE);
    }
    if (!sessionPresent || errorCode == ERROR_SESSION_INVALID) {
        showTimeoutPage();
    }
    errorExit(ERROR_TITLE, errorCode);
}

/// Shows the page whose script leads the whole window to the time-out page, and ends the process.
void AbstractMain::showTimeoutPage() {
    MessageMgr messages(m_language);
    HTMLPage page(ERROR_PAGE_LANGUAGE);
    put<TextString>(page, "title", ERROR_TITLE);
    put<TextString>(page, "css", STYLE_SHEET);
    put<TimeoutPage>(page, HTMLPage::KEY_BODY, messages);

    auto leave = std::make_unique<JsFunction>("onLoadFunction()");
    leave->addFunction("top.help_close();\ntop.vorpa_close();\n");
    leave->addFunction("window.top.location.href=\"/common/timeout.cgi\";");
    HTMLMapUtil::insertIntoMap(page.getMap(), HTMLPage::KEY_JAVA_SCRIPT, std::move(leave));

    if (m_hasSessionId) {
        auto cookie = std::make_unique<Cookie>();
        cookie->setSessionId(m_sessionId);
        cookie->setExpired(true);
        HTMLMapUtil::insertIntoMap(page.getMap(), HTMLPage::KEY_COOKIE, std::move(cookie));
    }
    put<MetaTag>(page, "meta_frameid", "FRAME-ID", FRAME_ID);
    page.getGenerator().printHTML();
    checkOutput();
    std::exit(0);
}

void AbstractMain::errorExit(std::string title, int code) {
    HTMLPage page(ERROR_PAGE_LANGUAGE);
    MessageMgr messages(m_language);
    showErrorPage(page, title,
                  std::make_unique<TextString>(messages.getMessage(messageFor(code), code)));
}

void AbstractMain::errorExit(std::string title, int code, unsigned char actionCode) {
    errorExit(std::move(title), code == EXCEPTION_CODE ? EXCEPTION_FAMILY | actionCode : code);
}

void AbstractMain::errorExit(std::string title, std::string message) {
    HTMLPage page(ERROR_PAGE_LANGUAGE);
    showErrorPage(page, title, std::make_unique<TextString>(message, false, true));
}

void AbstractMain::showErrorPage(HTMLPage& page, const std::string& title,
                                 std::unique_ptr<HTMLComponent> message) {
    put<TextString>(page, "title", title);
    HTMLMapUtil::insertIntoMap(page.getMap(), "message", std::move(message));
    put<TextString>(page, "css", STYLE_SHEET);
    put<MetaTag>(page, "meta_frameid", "FRAME-ID", FRAME_ID);
    page.getGenerator().setSkeletonFileName(HTMLPage::SKELETON_ERR_FILE_NAME);
    page.getGenerator().printHTML();
    checkOutput();
    std::exit(-1);
}

void AbstractMain::setAutoRefresh(HTMLPage& page) {
    if (m_refreshInterval != 0) {
        put<MetaTag>(page, "meta_refresh", "Refresh", std::to_string(m_refreshInterval));
    }
}

}  // namespace ORVLib::Gui
