#include "gui/AbstractMain.h"

#include <csignal>
#include <cstdlib>
#include <exception>

#include "base/Log.h"
#include "base/Output.h"
#include "common/ErrorCode.h"
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

/// Operator messages of the error page.
enum Message {
    REQUEST_FAILED = 11,
    BOARD_UNAVAILABLE = 13,
    BOARD_TOO_SLOW = 14,
    COMMUNICATION_FAILED = 20,
    PAGE_FAILED = 24,
    REQUEST_REFUSED = 78,
    BOARD_FAILED = 79,
    BOARD_BUSY = 105
};

Message systemMessage(int code) {
    switch (code) {
        case ErrorCode::CANNOT_CONNECT:
        case ErrorCode::CONNECTION_BROKEN:
            return BOARD_UNAVAILABLE;
        case ErrorCode::INTERNAL_ERROR:
            return PAGE_FAILED;
        case ErrorCode::WRONG_SIZE:
            return REQUEST_FAILED;
        case ErrorCode::TIME_LIMIT_PASSED:
            return BOARD_TOO_SLOW;
        default:
            return COMMUNICATION_FAILED;
    }
}

/// The operator message that explains an error code.
Message messageFor(int code) {
    switch (code & ErrorCode::FAMILY_MASK) {
        case ErrorCode::SYSTEM_FAMILY:
            return systemMessage(code);
        case ErrorCode::OPERATION_FAMILY:
            return code == ErrorCode::OPERATION_IN_PROGRESS ? BOARD_BUSY : REQUEST_FAILED;
        case ErrorCode::BOARD_FAMILY:
        case ErrorCode::ACTION_FAMILY:
            return BOARD_FAILED;
        default:
            return REQUEST_REFUSED;
    }
}

template <typename Component, typename... Arguments>
void put(HTMLPage& page, const std::string& marker, Arguments&&... arguments) {
    HTMLMapUtil::insertIntoMap(page.getMap(), marker,
                               std::make_unique<Component>(std::forward<Arguments>(arguments)...));
}

/// Fills the markers that error and time-out pages share.
void fillHead(HTMLPage& page, const std::string& title) {
    put<TextString>(page, "title", title);
    put<TextString>(page, "css", STYLE_SHEET);
    put<MetaTag>(page, "meta_frameid", "FRAME-ID", FRAME_ID);
}

/// Writing the entry may throw too, for lack of memory.
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
    // A browser that closed the connection and a full log are failed writes. They must not end the
    // process before it has deleted the uploaded file.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return runPage();
    } catch (...) {
        // The error page itself failed, so there is nothing left to show.
        logLastFailure(m_trace);
        return -1;
    }
}

int AbstractMain::runPage() {
    int code = 0;  // of the last errorExit(), which is reached after the others if they return
    Log::putText(m_trace, Log::PROTOCOL_LEVEL, LogText::PROGRAM_STARTED, "CGI");
    try {
        if (m_formInfo != nullptr && m_formInfo->isReadSkip()) {
            m_formInfo->readSkipData();
        }
        const int status = execMain();
        checkOutput();
        return status;
    } catch (const PException& e) {
        Log::putText(m_trace, Log::ERROR_LEVEL, LogText::PROGRAM_ABORTED, "main");
        errorExit(ERROR_TITLE, static_cast<int>(e.getExceptionDetail()), e.getActionCode());
    } catch (const std::exception& e) {
        m_trace.putLog(Log::ERROR_LEVEL, std::string("Aborted:") + e.what());
        code = ErrorCode::INTERNAL_ERROR;
    } catch (...) {
        m_trace.putLog(Log::ERROR_LEVEL, "Aborted: Unknown exception");
        code = ErrorCode::INTERNAL_ERROR;
    }
    errorExit(ERROR_TITLE, code);
    return -1;
}

/// Sends the rest of the page. Writes a trace entry when the web server did not take all of it.
void AbstractMain::checkOutput() {
    if (!Output::flush()) {
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
        Log::putText(m_trace, Log::ERROR_LEVEL, LogText::NO_SESSION_COOKIE);
    }
    if (!sessionPresent || errorCode == ERROR_SESSION_INVALID) {
        showTimeoutPage();
    }
    errorExit(ERROR_TITLE, errorCode);
}

/// Prints a page whose script opens the time-out page in the whole window, and ends the process.
void AbstractMain::showTimeoutPage() {
    MessageMgr messages(m_language);
    HTMLPage page(ERROR_PAGE_LANGUAGE);
    fillHead(page, ERROR_TITLE);
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
    errorExit(std::move(title), ErrorCode::shown(code, actionCode));
}

void AbstractMain::errorExit(std::string title, std::string message) {
    HTMLPage page(ERROR_PAGE_LANGUAGE);
    showErrorPage(page, title, std::make_unique<TextString>(message, false, true));
}

void AbstractMain::showErrorPage(HTMLPage& page, const std::string& title,
                                 std::unique_ptr<HTMLComponent> message) {
    fillHead(page, title);
    HTMLMapUtil::insertIntoMap(page.getMap(), "message", std::move(message));
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
