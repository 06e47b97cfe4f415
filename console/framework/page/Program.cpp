#include "framework/page/Program.h"

#include <csignal>
#include <cstdlib>
#include <iostream>

#include "framework/access/CrossSite.h"
#include "framework/access/Module.h"
#include "framework/access/Rights.h"
#include "framework/backend/Environment.h"
#include "framework/backend/WaitLimit.h"
#include "framework/page/ErrorPage.h"
#include "gui/CGIRequester.h"
#include "gui/Cookie.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

/// Bytes of a form. The library reads a larger one with a single read, which may return only a
/// part.
constexpr long LARGEST_FORM = 0x10000;

/// Status lines; the last one has a header that says when to try again, in seconds.
constexpr char BAD_REQUEST[] = "400 Bad Request";
constexpr char FORBIDDEN[] = "403 Forbidden";
constexpr char TOO_LARGE[] = "413 Payload Too Large";
constexpr char BUSY[] = "503 Service Unavailable\nRetry-After: 2";

int refuse(const std::string& reason, const char* status, const Problem& problem) {
    logError(Module::REQUEST, "request refused: " + reason);
    notePageBegun();
    // The page has not begun, so it can still have a status.
    std::cout << "Status: " << status << '\n';
    printErrorPage(problem, std::nullopt);
    return -1;
}

/// Bytes of the body that a POST announces.
long announcedLength() {
    return variable("REQUEST_METHOD") == "POST"
               ? std::strtol(variable("CONTENT_LENGTH").c_str(), nullptr, 10)
               : 0;
}

bool isTooLarge(const RequestRules& rules, long length) {
    if (!rules.takesFile) {
        return length > LARGEST_FORM;
    }
    const bool isMultipart = variable("CONTENT_TYPE").rfind(FormInfo::checkStringType, 0) == 0;
    return !isMultipart && length > FormInfo::LARGEST_BODY_AT_START;
}

/// Whether the request's session has the right to a function. Does not renew the session.
bool isAuthorised(Function function) {
    const Cookie cookie;
    if (cookie.isError()) {
        return false;
    }
    CGIRequester requester(cookie.getSessionId().c_str());
    int language = 0;
    unsigned int refreshInterval = 0;
    CGIAuthority authority;
    return requester.checkSession(language, refreshInterval, &authority, true) != 0 &&
           mayUse(requester, authority, function);
}

/// A log or page that cannot be written is then a failed write, and does not end the program.
void ignoreOutputSignals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace

int refuseRequest(const std::string& reason) {
    return refuse(reason, BAD_REQUEST, {TEXT_UNREADABLE_REQUEST});
}

std::optional<int> admitRequest(const RequestRules& rules) {
    ignoreOutputSignals();
    limitResources();
    if (!takePlace(rules.places)) {
        return refuse("too many pages run at a time", BUSY, {TEXT_CONSOLE_BUSY, "", {}, {}, true});
    }
    if (rules.places == Places::RESERVED) {
        constexpr int SHORT_MS = 1000;
        static const WaitLimit forWholePage(SHORT_MS);
    }
    if (isCrossSitePost()) {
        return refuse("another site made it", FORBIDDEN, {TEXT_FORM_CUT_OFF});
    }
    const long length = announcedLength();
    if (isTooLarge(rules, length)) {
        return refuse("a body of " + std::to_string(length) + " bytes", TOO_LARGE,
                      {TEXT_REQUEST_TOO_LARGE});
    }
    if (length > 0 && rules.function && !isAuthorised(*rules.function)) {
        // The page itself then says whether the session or the right is missing.
        setenv("CONTENT_LENGTH", "0", 1);
    }
    return std::nullopt;
}

}  // namespace Console
