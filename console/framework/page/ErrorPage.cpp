#include "framework/page/ErrorPage.h"

#include <cstdio>

#include "common/ErrorCode.h"
#include "framework/access/Functions.h"
#include "framework/access/PageLimits.h"
#include "framework/backend/Environment.h"
#include "framework/component/Components.h"
#include "framework/component/PageChrome.h"
#include "framework/component/PageText.h"
#include "framework/component/SkeletonPart.h"
#include "gui/HTMLPage.h"
#include "gui/MessageMgr.h"
#include "gui/MetaTag.h"
#include "gui/TextString.h"
#include "protocol/Errors.h"

using namespace ORVLib;
using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr int JAPANESE = 0;
constexpr int ENGLISH = 1;
constexpr char SECONDS_TO_NEXT_TRY[] = "10";

/// Explains the codes from `first` to `last`. The first row that has a code counts.
struct Explanation {
    int first;
    int last;
    Text what;
    Text advice;
    Text adviceForChange;
    bool isPassing;
};

// clang-format off
constexpr Explanation EXPLANATIONS[] = {
    {ErrorCode::OPERATION_IN_PROGRESS, ErrorCode::OPERATION_IN_PROGRESS,
     TEXT_ERROR_IN_PROGRESS, TEXT_ADVICE_WAIT, TEXT_ADVICE_SEND_LATER, true},
    {ErrorCode::CANNOT_CONNECT, ErrorCode::CONNECTION_BROKEN,
     TEXT_ERROR_NO_BOARD, TEXT_ADVICE_WAIT, TEXT_ADVICE_LOOK_FIRST, true},
    {ErrorCode::INTERNAL_ERROR, ErrorCode::INTERNAL_ERROR,
     TEXT_ERROR_PAGE, TEXT_ADVICE_TELL, TEXT_ADVICE_LOOK_FIRST, false},
    {ErrorCode::TIME_LIMIT_PASSED, ErrorCode::TIME_LIMIT_PASSED,
     TEXT_ERROR_LATE, TEXT_ADVICE_WAIT, TEXT_ADVICE_LOOK_FIRST, true},
    {ErrorCode::BODY_UNREADABLE, ErrorCode::BODY_UNREADABLE,
     TEXT_ERROR_CUT_OFF, TEXT_ADVICE_SEND_AGAIN, TEXT_ADVICE_SEND_AGAIN, false},
    {ErrorCode::SYSTEM_FAMILY, ErrorCode::SYSTEM_FAMILY | 0xff,
     TEXT_ERROR_ANSWER, TEXT_ADVICE_TELL, TEXT_ADVICE_LOOK_FIRST, false},
    {Protocol::ERROR_NOT_AUTHORISED, Protocol::ERROR_NOT_AUTHORISED,
     TEXT_ERROR_RIGHT, TEXT_ADVICE_RIGHT, TEXT_ADVICE_RIGHT, false},
    {Protocol::ERROR_BUSY, Protocol::ERROR_BUSY,
     TEXT_ERROR_BUSY, TEXT_ADVICE_WAIT, TEXT_ADVICE_SEND_LATER, true},
    {ErrorCode::BOARD_FAMILY, ErrorCode::BOARD_FAMILY | 0xff,
     TEXT_ERROR_BOARD, TEXT_ADVICE_TELL, TEXT_ADVICE_LOOK_FIRST, false},
    {ErrorCode::ACTION_FAMILY, ErrorCode::ACTION_FAMILY | 0xff,
     TEXT_ERROR_BOARD, TEXT_ADVICE_TELL, TEXT_ADVICE_LOOK_FIRST, false},
};
// clang-format on

constexpr Explanation OTHER = {
    0, 0, TEXT_ERROR_REFUSED, TEXT_ADVICE_TELL, TEXT_ADVICE_LOOK_FIRST, false};

const Explanation& explanationOf(int code) {
    for (const Explanation& explanation : EXPLANATIONS) {
        if (explanation.first <= code && code <= explanation.last) {
            return explanation;
        }
    }
    return OTHER;
}

bool isRead() {
    return variable("REQUEST_METHOD") != "POST";
}

/// A path with its query for a link; empty when it has other characters than an address, or is one
/// of another site.
std::string linkPath(std::string path) {
    constexpr char CHARACTERS[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/?%&=+,;:@!$*()";
    const bool isOwn = path.size() > 1 && path[0] == '/' && path[1] != '/';
    if (!isOwn || path.find_first_not_of(CHARACTERS) != std::string::npos) {
        return "";
    }
    MessageMgr::convertStr(path, "&", "&amp;");
    return path;
}

std::string ownPath() {
    const std::string query = variable("QUERY_STRING");
    return linkPath(variable("SCRIPT_NAME") + (query.empty() ? "" : '?' + query));
}

/// The page of this console that led to the request; empty when it is unknown. A frame has no way
/// back to its frameset.
std::string pathBefore() {
    const std::string origin = (isEncrypted() ? "https://" : "http://") + variable("HTTP_HOST");
    const std::string referrer = variable("HTTP_REFERER");
    if (referrer.rfind(origin + '/', 0) != 0) {
        return "";
    }
    const std::string path = linkPath(referrer.substr(origin.size()));
    return path.rfind(FRAME_PATH, 0) == 0 ? "" : path;
}

/// A link without a script, which the page's content security policy forbids.
Component makeWay(const std::string& path, Text label, const char* target) {
    return std::make_unique<TextString>(
        "<a href=\"" + path + "\" target=\"" + target + "\">" + htmlText(text(label)) + "</a>",
        false, true);
}

Component makeWays() {
    auto ways = std::make_unique<ComponentGroup>();
    const std::string own = ownPath();
    const std::string before = pathBefore();
    if (isRead() && !own.empty()) {
        ways->add(makeWay(own, TEXT_TRY_AGAIN, "_self"));
    }
    // After a POST, the way back opens the form anew.
    if (!before.empty() && !(isRead() && before == own)) {
        ways->add(makeWay(before, TEXT_BACK, "_self"));
    }
    ways->add(makeWay(FRAME_PATH, TEXT_OVERVIEW, "_top"));
    ways->add(makeWay(LOGIN_PATH, TEXT_LOGIN, "_top"));
    return ways;
}

std::string adviceFor(const Problem& problem) {
    std::string advice = text(*problem.advice);
    const char* separator = " ";
    for (const Text role : problem.roles) {
        advice += separator + text(role);
        separator = ", ";
    }
    return advice;
}

void putProblem(ComponentMap& map, const Problem& problem) {
    putText(map, "title", text(TEXT_ERROR));
    putSentence(map, "message", text(problem.what) + problem.code);
    if (problem.advice) {
        putSentence(map, "advice", adviceFor(problem));
    }
    if (problem.isPassing && isRead()) {
        putSentence(map, "reload", text(TEXT_TRIES_AGAIN));
    }
    HTMLMapUtil::insertIntoMap(map, "ways", makeWays());
}

/// The problem in a second language, below the first.
class SecondLanguage : public SkeletonPart {
public:
    explicit SecondLanguage(const Problem& problem) : SkeletonPart("skeleton_err_second.txt") {
        putProblem(getMap(), problem);
    }
};

}  // namespace

Problem problemOf(int code, bool isChange, const std::vector<Text>& roles) {
    const Explanation& explanation = explanationOf(code);
    Problem problem{explanation.what};
    if (code > 0) {
        char suffix[sizeof " (00:7fffffff)"];
        std::snprintf(suffix, sizeof suffix, " (00:%04x)", static_cast<unsigned int>(code));
        problem.code = suffix;
    }
    problem.advice = isChange ? explanation.adviceForChange : explanation.advice;
    problem.isPassing = explanation.isPassing;
    if (explanation.advice == TEXT_ADVICE_RIGHT) {
        if (roles.empty()) {
            problem.advice = TEXT_ADVICE_TELL;
        }
        problem.roles = roles;
    }
    return problem;
}

void printErrorPage(const Problem& problem, std::optional<int> language) {
    // English texts are ASCII, which is part of the Japanese character set.
    HTMLPage page(language.value_or(JAPANESE));
    MessageMgr texts(language.value_or(ENGLISH));
    setPageTexts(texts);
    setTitleAndStyle(page, text(TEXT_ERROR));
    putProblem(page.getMap(), problem);
    if (problem.isPassing && isRead()) {
        HTMLMapUtil::insertIntoMap(page.getMap(), "meta_refresh",
                                   std::make_unique<MetaTag>("Refresh", SECONDS_TO_NEXT_TRY));
    }
    MessageMgr otherTexts(JAPANESE);
    if (!language) {
        setPageTexts(otherTexts);
        HTMLMapUtil::insertIntoMap(page.getMap(), "second",
                                   std::make_unique<SecondLanguage>(problem));
    }
    page.getGenerator().setSkeletonFileName(HTMLPage::SKELETON_ERR_FILE_NAME);
    page.getGenerator().printHTML();
}

}  // namespace Console
