#include "framework/access/Device.h"

#include <algorithm>
#include <iostream>
#include <string_view>

#include "common/Hex.h"
#include "framework/access/Functions.h"
#include "framework/backend/Board.h"
#include "framework/backend/Environment.h"
#include "framework/component/PageChrome.h"
#include "protocol/Payload.h"

using namespace ORVLib::Gui;

namespace Console {

namespace {

constexpr std::string_view NAME = "device=";
constexpr std::string_view SEPARATOR = "; ";
constexpr std::string_view ONE_YEAR = "; Max-Age=31536000";  // seconds
constexpr std::string_view WITHOUT_ID = "none";

bool isId(std::string_view text) {
    return ORVLib::isHex(text, DEVICE_ID_DIGITS);
}

void printDeviceCookie(std::string_view value, std::string_view lifetime) {
    std::cout << "Set-Cookie: " << NAME << value << "; Path=" << LOGIN_PATH << lifetime
              << "; HttpOnly; SameSite=Strict" << (isEncrypted() ? "; Secure\n" : "\n");
}

/// The header line that tests whether the browser keeps cookies.
class DeviceCookie : public HTMLComponent {
public:
    void printHTML() const override { printDeviceCookie(WITHOUT_ID, ""); }
    bool isError() const override { return false; }
};

/// The header line that stores the ID in the browser, then the line of the session.
class LoginCookies : public HTMLComponent {
public:
    LoginCookies(const std::string& sessionId, std::string device)
        : m_session(makeSessionCookie(sessionId)), m_device(std::move(device)) {}

    void printHTML() const override {
        printDeviceCookie(m_device, ONE_YEAR);
        m_session->printHTML();
    }
    bool isError() const override { return false; }

private:
    std::unique_ptr<HTMLComponent> m_session;
    std::string m_device;
};

/// The value of the request's first device cookie that passes `isValid`; empty without one.
template <typename Check>
std::string findCookie(Check isValid) {
    const std::string header = variable("HTTP_COOKIE");
    std::string_view rest = header;
    while (!rest.empty()) {
        const std::string_view cookie = rest.substr(0, rest.find(SEPARATOR));
        if (cookie.substr(0, NAME.size()) == NAME && isValid(cookie.substr(NAME.size()))) {
            return std::string(cookie.substr(NAME.size()));
        }
        rest.remove_prefix(std::min(rest.size(), cookie.size() + SEPARATOR.size()));
    }
    return {};
}

}  // namespace

std::string readDevice() {
    return findCookie(isId);
}

bool keepsDevice() {
    return !findCookie([](std::string_view value) { return !value.empty(); }).empty();
}

void putDeviceCookie(HTMLPage& page) {
    HTMLMapUtil::insertIntoMap(page.getMap(), HTMLPage::KEY_COOKIE,
                               std::make_unique<DeviceCookie>());
}

std::string askDevice(CGIRequester& requester, const std::string& sent) {
    const Payload question(formatRecord({sent}));
    Payload answer;
    if (requester.getInfo(ITEM_OWN_DEVICE | ACCESS_EXCHANGE, question, answer) == 0) {
        return "";
    }
    const auto texts = parseTexts(answer.getBytes());
    return texts && texts->size() == 1 && isId(texts->front()) ? texts->front() : "";
}

void putLoginCookies(HTMLPage& page, const std::string& sessionId, const std::string& device) {
    if (device.empty()) {
        putSessionCookie(page, sessionId);
        return;
    }
    HTMLMapUtil::insertIntoMap(page.getMap(), HTMLPage::KEY_COOKIE,
                               std::make_unique<LoginCookies>(sessionId, device));
}

}  // namespace Console
