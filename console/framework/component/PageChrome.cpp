#include "framework/component/PageChrome.h"

#include "framework/backend/Environment.h"
#include "framework/component/Components.h"
#include "framework/component/PageText.h"
#include "gui/Cookie.h"

using namespace ORVLib::Gui;

namespace Console {

bool isEncrypted() {
    return variable("HTTPS") == "on";
}

void putText(ComponentMap& map, const std::string& marker, const std::string& text) {
    HTMLMapUtil::insertIntoMap(map, marker, makeText(text));
}

void putSentence(ComponentMap& map, const std::string& marker, const std::string& text) {
    HTMLMapUtil::insertIntoMap(map, marker, makeSentence(text));
}

void setTitleAndStyle(HTMLPage& page, const std::string& title) {
    putText(page.getMap(), "title", title);
    putText(page.getMap(), "css", "/default.css");
    putText(page.getMap(), "lang", text(TEXT_LANGUAGE_TAG));
}

std::unique_ptr<HTMLComponent> makeSessionCookie(const std::string& sessionId) {
    auto cookie = std::make_unique<Cookie>();
    cookie->setSessionId(sessionId + "; path=/; HttpOnly; SameSite=Strict" +
                         (isEncrypted() ? "; Secure" : ""));
    return cookie;
}

void putSessionCookie(HTMLPage& page, const std::string& sessionId) {
    HTMLMapUtil::insertIntoMap(page.getMap(), HTMLPage::KEY_COOKIE, makeSessionCookie(sessionId));
}

void putExpiredCookie(HTMLPage& page) {
    auto cookie = std::make_unique<Cookie>();
    cookie->setSessionId("");
    cookie->setExpired(true);
    HTMLMapUtil::insertIntoMap(page.getMap(), HTMLPage::KEY_COOKIE, std::move(cookie));
}

std::string skeletonPath(const std::string& name) {
    const std::string top = HTMLPage::SKELETON_FILE_NAME;
    return top.substr(0, top.rfind('/') + 1) + name;
}

}  // namespace Console
