#include "daemon/Requests.h"

#include <exception>

#include "common/Hex.h"
#include "daemon/LoginClient.h"
#include "item/Users.h"
#include "orv/OrvTrace.h"
#include "protocol/Digest.h"
#include "state/Password.h"
#include "wire/Protocol.h"
#include "wire/Random.h"

namespace ORVLib::Board {

namespace {

constexpr std::size_t CHECK_OPTION_SIZE = 1;

std::string readText(const std::string& record, std::size_t offset, std::size_t size) {
    std::string text = readField(record, offset, size);
    if (text.size() == size) {
        throw boardError(ERROR_BAD_REQUEST, "a text of the login record has no end");
    }
    return text;
}

// The client's text must not forge a field of the event log.
std::string printable(std::string text) {
    for (char& character : text) {
        if (character < ' ' || character > '~') {
            character = '?';
        }
    }
    return text;
}

void requireSize(const Request& request, std::size_t size) {
    if (request.payload.size() != size) {
        throw boardError(ERROR_BAD_REQUEST, "wrong payload size",
                         static_cast<std::uint32_t>(request.payload.size()));
    }
}

Telegram answerTo(const Request& request) {
    Telegram telegram;
    telegram.processId = request.telegram.processId;
    telegram.sessionId = request.telegram.sessionId;
    return telegram;
}

Telegram answerFor(const User& user, const Request& request) {
    Telegram telegram = answerTo(request);
    telegram.language = user.language;
    telegram.authority = user.authority;
    return telegram;
}

PException failure(const std::exception& error) {
    trace::OrvTrace(2, 1, 1).putLog(0, std::string("the board failed: ") + error.what());
    return boardError(ERROR_BOARD_FAILURE, error.what(), 0, ACTION_STATE);
}

// Runs a step; an exception becomes an error response.
template <class Step>
Reply answered(const Step& step) {
    try {
        return step();
    } catch (const PException& refusal) {
        return Reply::error(refusal);
    } catch (const std::exception& error) {
        return Reply::error(failure(error));
    }
}

// The password may have been changed while this check of the one before waited.
bool isPasswordOf(const User& user, const Requests::PasswordCheck& check, bool matches) {
    return matches && (!check.hash || *check.hash == user.passwordHash);
}

}  // namespace

Requests::Requests(const Parts& parts)
    : m_state(parts.state),
      m_sessions(parts.sessions),
      m_items(parts),
      m_nobodysHash(hashPassword(formatHex(randomBytes(MAX_PASSWORD_LENGTH / 2)))) {}

Reply Requests::handle(const Request& request) {
    return answered([&] { return dispatch(request); });
}

Reply Requests::dispatch(const Request& request) {
    switch (request.type) {
        case PROCEDURE_GET_LANGUAGE:
            return getLanguage(request);
        case PROCEDURE_LOGOUT:
            return logout(request);
        case PROCEDURE_CHECK_SESSION:
            return checkSession(request);
        case PROCEDURE_GET_USER_INFO:
            return getUserInfo(request);
        default:
            return accessItem(request);
    }
}

Requests::PasswordCheck Requests::beginPasswordCheck(const Request& request) {
    try {
        return request.type == PROCEDURE_LOGIN ? beginLogin(request) : beginItemWrite(request);
    } catch (const std::exception& error) {
        throw failure(error);
    }
}

Reply Requests::endPasswordCheck(const Request& request, const PasswordCheck& check, bool matches,
                                 const std::string& newHash) {
    return answered([&] {
        return request.type == PROCEDURE_LOGIN
                   ? openSession(request, check, matches)
                   : writeWithPassword(request, check, matches, newHash);
    });
}

Requests::PasswordCheck Requests::beginLogin(const Request& request) {
    requireSize(request, LoginRecord::SIZE);
    PasswordCheck login;
    login.user = readText(request.payload, LoginRecord::USER_OFFSET, NAME_SIZE);
    login.password = readText(request.payload, LoginRecord::PASSWORD_OFFSET, NAME_SIZE);
    const LoginClient client = LoginClient::parse(
        readText(request.payload, LoginRecord::CLIENT_OFFSET, LoginRecord::CLIENT_SIZE));
    login.address = client.address;
    login.account = login.user;
    login.source = client.getNetwork();
    // An unknown user costs a hash too: the time must not tell who exists.
    const auto user = m_state.findUser(login.user);
    login.hash = user ? user->passwordHash : m_nobodysHash;
    if (!client.device.empty()) {
        noteDevice(login, digestOf(client.device));
    }
    return login;
}

// The browser has a budget of its own when the user logged in from it before.
void Requests::noteDevice(PasswordCheck& login, const std::string& digest) {
    if (m_state.hasDevice(digest, login.user)) {
        login.device = digest;
        login.source = "device " + login.user + ' ' + digest;
        login.isKnown = true;
    }
}

Requests::PasswordCheck Requests::beginItemWrite(const Request& request) {
    const Caller caller = requireCaller(request);
    m_items.checkWrite(request.item, request.payload, caller);
    PasswordCheck change;
    change.account = caller.user.name;
    change.source = "user " + caller.user.name;
    change.isKnown = true;
    if (request.item.id != ITEM_OWN_PASSWORD) {
        change.newPassword = Users::getPassword(request.payload);
        return change;
    }
    change.user = caller.user.name;
    change.hash = caller.user.passwordHash;
    change.password = readText(request.payload, PasswordChange::PRESENT_OFFSET, NAME_SIZE);
    change.newPassword = readText(request.payload, PasswordChange::NEW_OFFSET, NAME_SIZE);
    if (change.newPassword.empty() || change.newPassword.size() > MAX_PASSWORD_LENGTH) {
        throw boardError(ERROR_BAD_REQUEST, "a password has 1 to 32 bytes");
    }
    return change;
}

Reply Requests::openSession(const Request& request, const PasswordCheck& login, bool matches) {
    const auto user = m_state.findUser(login.user);
    const std::string address = printable(login.address);
    if (!user || !isPasswordOf(*user, login, matches)) {
        // Some type their password where the name belongs: only names of users are noted.
        m_state.logEvent({EventCode::LOGIN_REFUSED, user ? user->name : "", address});
        throw boardError(ERROR_LOGIN_REFUSED, "wrong user name or password");
    }
    Telegram telegram = answerFor(*user, request);
    telegram.sessionId = m_sessions.open(user->name, address, login.device,
                                         {EventCode::LOGGED_IN, user->name, address});
    return Reply::make(request.type, telegram);
}

Reply Requests::getLanguage(const Request& request) {
    Telegram telegram = answerTo(request);
    const std::string language = m_items.read(request.item, nullptr);
    telegram.language = static_cast<unsigned char>(readNumber(language, 0));
    return Reply::make(request.type, telegram);
}

Reply Requests::logout(const Request& request) {
    const User user = requireCaller(request).user;
    m_sessions.close(request.telegram.sessionId, {EventCode::LOGGED_OUT, user.name, ""});
    return Reply::make(request.type, answerFor(user, request));
}

Reply Requests::checkSession(const Request& request) {
    requireSize(request, CHECK_OPTION_SIZE);
    const bool renew = request.payload.front() == '\0';
    const User user = requireCaller(request, renew).user;
    Reply reply = Reply::make(request.type, answerFor(user, request));
    reply.payload = formatNumber(user.refreshInterval);
    return reply;
}

Reply Requests::getUserInfo(const Request& request) {
    const User user = requireCaller(request).user;
    Reply reply = Reply::make(request.type, answerFor(user, request));
    std::string name = user.name;
    name.resize(NAME_SIZE, '\0');
    reply.payload = name + formatNumber(user.refreshInterval);
    return reply;
}

Reply Requests::accessItem(const Request& request) {
    if (!request.isItemAccess()) {
        throw boardError(ERROR_NO_SUCH_ITEM, "unknown procedure", request.type);
    }
    if (request.access == ACCESS_READ && request.item.isPublic()) {
        return readPublicItem(request);
    }
    Caller caller = requireCaller(request);
    std::optional<std::string> payload;
    if (request.access == ACCESS_WRITE) {
        m_items.write(request.item, request.payload, caller);
    } else if (request.access == ACCESS_EXCHANGE) {
        payload = m_items.exchange(request.item, request.payload, caller);
    } else {
        payload = m_items.read(request.item, &caller);
    }
    Reply reply = Reply::make(request.type, answerFor(caller.user, request));
    reply.payload = std::move(payload);
    return reply;
}

Reply Requests::writeWithPassword(const Request& request, const PasswordCheck& check, bool matches,
                                  const std::string& newHash) {
    Caller caller = requireCaller(request);  // the session may have ended meanwhile
    if (!isPasswordOf(caller.user, check, matches)) {
        m_state.logEvent({EventCode::PASSWORD_CHANGE_REFUSED, caller.user.name, ""});
        throw boardError(ERROR_LOGIN_REFUSED, "wrong password");
    }
    m_items.write(request.item, request.payload, caller, newHash);
    return Reply::make(request.type, answerFor(caller.user, request));
}

Reply Requests::readPublicItem(const Request& request) {
    Reply reply = Reply::make(request.type, answerTo(request));
    reply.payload = m_items.read(request.item, nullptr);
    return reply;
}

Caller Requests::requireCaller(const Request& request, bool renew) {
    const std::string& sessionId = request.telegram.sessionId;
    const auto name = m_sessions.find(sessionId, renew);
    const auto user = name ? m_state.findUser(*name) : std::nullopt;
    if (!user) {
        throw boardError(ERROR_NO_SESSION, "the session is over or never was");
    }
    return {*user, sessionId};
}

}  // namespace ORVLib::Board
