#include "item/OwnSettings.h"

#include "wire/Protocol.h"

namespace ORVLib::Board::OwnSettings {

std::string readLanguage(const Call& call) {
    return formatNumber(call.getUser().language);
}

void writeLanguage(const Call& call) {
    User user = call.getUser();
    const auto language = static_cast<unsigned char>(readNumber(call.content, 0));
    if (user.language == language) {
        return;
    }
    user.language = language;
    call.state.storeUser(user, call.makeEvent(EventCode::SETTINGS_CHANGED, "own language"));
}

std::string readInterval(const Call& call) {
    return formatNumber(call.getUser().refreshInterval);
}

void writeInterval(const Call& call) {
    User user = call.getUser();
    const std::uint32_t interval = readNumber(call.content, 0);
    if (user.refreshInterval == interval) {
        return;
    }
    user.refreshInterval = interval;
    call.state.storeUser(user, call.makeEvent(EventCode::SETTINGS_CHANGED, "own refresh interval"));
}

void writePassword(const Call& call) {
    User user = call.getUser();
    user.passwordHash = call.passwordHash;
    call.sessions.resetUser(user, call.caller->sessionId,
                            call.makeEvent(EventCode::OWN_PASSWORD_CHANGED, ""));
}

std::string readSession(const Call& call) {
    const Sessions& sessions = call.sessions;
    return formatRecord({std::to_string(sessions.getTimeLeft(call.caller->sessionId).count()),
                         std::to_string(sessions.getTimeout().count())});
}

}  // namespace ORVLib::Board::OwnSettings
