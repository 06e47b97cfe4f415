#include "Requests.h"

#include <exception>

#include "Password.h"
#include "Protocol.h"
#include "orv/OrvTrace.h"

namespace ORVLib::Board {

namespace {

// The login record: three texts, each ended by a NUL within its field.
constexpr std::size_t USER_OFFSET = 0;
constexpr std::size_t PASSWORD_OFFSET = 36;
constexpr std::size_t ADDRESS_OFFSET = 72;
constexpr std::size_t NAME_SIZE = 36;
constexpr std::size_t ADDRESS_SIZE = 132;
constexpr std::size_t MAX_PASSWORD_SIZE = 32;  // what a page's login can send
constexpr std::size_t LOGIN_RECORD_SIZE = ADDRESS_OFFSET + ADDRESS_SIZE;

constexpr std::size_t CHECK_OPTION_SIZE = 1;

std::string readText(const std::string& record, std::size_t offset, std::size_t size) {
    std::string text = readField(record, offset, size);
    if (text.size() == size) {
        throw boardError(ERROR_BAD_REQUEST, "a text of the login record has no end");
    }
    return text;
}

// What a person typed must not be able to forge a line of the event log.
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

// Runs a step and turns what it throws into an error response.
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

}  // namespace

Requests::Requests(BoardState& state, Sessions& sessions)
    : m_state(state), m_sessions(sessions), m_items(state), m_nobodysHash(hashPassword("nobody")) {}

bool Requests::hasPayload(std::uint32_t type) {
    switch (type) {
        case PROCEDURE_LOGIN:
        case PROCEDURE_CHECK_SESSION:
            return true;
        default:
            return (type & FAMILY_MASK) == FAMILY && (type & ACCESS_MASK) != ACCESS_READ;
    }
}

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

bool Requests::isPasswordChecked(std::uint32_t type) {
    return type == PROCEDURE_LOGIN || type == (ITEM_OWN_PASSWORD | ACCESS_WRITE);
}

Requests::PasswordCheck Requests::beginPasswordCheck(const Request& request) {
    try {
        return request.type == PROCEDURE_LOGIN ? beginLogin(request) : beginPasswordChange(request);
    } catch (const std::exception& error) {
        throw failure(error);
    }
}

Reply Requests::endPasswordCheck(const Request& request, const PasswordCheck& check, bool matches,
                                 const std::string& newHash) {
    return answered([&] {
        return request.type == PROCEDURE_LOGIN ? openSession(request, check, matches)
                                               : changePassword(request, check, matches, newHash);
    });
}

Requests::PasswordCheck Requests::beginLogin(const Request& request) {
    requireSize(request, LOGIN_RECORD_SIZE);
    PasswordCheck login;
    login.user = readText(request.payload, USER_OFFSET, NAME_SIZE);
    login.password = readText(request.payload, PASSWORD_OFFSET, NAME_SIZE);
    login.address = readText(request.payload, ADDRESS_OFFSET, ADDRESS_SIZE);
    // An unknown user costs a hash too: the time must not tell who exists.
    const auto user = m_state.findUser(login.user);
    login.hash = user ? user->passwordHash : m_nobodysHash;
    return login;
}

Requests::PasswordCheck Requests::beginPasswordChange(const Request& request) {
    const User user = requireUser(request);
    Items::checkWrite(ITEM_OWN_PASSWORD, request.payload, user);
    PasswordCheck change;
    change.user = user.name;
    change.hash = user.passwordHash;
    change.password = readText(request.payload, PasswordChange::OLD_OFFSET, NAME_SIZE);
    change.newPassword = readText(request.payload, PasswordChange::NEW_OFFSET, NAME_SIZE);
    if (change.newPassword.empty() || change.newPassword.size() > MAX_PASSWORD_SIZE) {
        throw boardError(ERROR_BAD_REQUEST, "a password has 1 to 32 bytes");
    }
    return change;
}

Reply Requests::openSession(const Request& request, const PasswordCheck& login, bool matches) {
    const auto user = m_state.findUser(login.user);
    const std::string from = " from " + printable(login.address);
    if (!user || !matches) {
        m_state.logEvent({printable(login.user), "login refused" + from});
        throw boardError(ERROR_LOGIN_REFUSED, "wrong user name or password");
    }
    Telegram telegram = answerFor(*user, request);
    telegram.sessionId = m_sessions.open(user->name, {user->name, "logged in" + from});
    return Reply::make(request.type, telegram);
}

Reply Requests::getLanguage(const Request& request) {
    Telegram telegram = answerTo(request);
    const std::string language = m_items.read(ITEM_DEFAULT_LANGUAGE, nullptr);
    telegram.language = static_cast<unsigned char>(readNumber(language, 0));
    return Reply::make(request.type, telegram);
}

Reply Requests::logout(const Request& request) {
    const User user = requireUser(request);
    m_sessions.close(request.telegram.sessionId, {user.name, "logged out"});
    return Reply::make(request.type, answerFor(user, request));
}

Reply Requests::checkSession(const Request& request) {
    requireSize(request, CHECK_OPTION_SIZE);
    const bool renew = request.payload.front() == '\0';
    const User user = requireUser(request, renew);
    Reply reply = Reply::make(request.type, answerFor(user, request));
    reply.payload = formatNumber(user.refreshInterval);
    return reply;
}

Reply Requests::getUserInfo(const Request& request) {
    const User user = requireUser(request);
    Reply reply = Reply::make(request.type, answerFor(user, request));
    std::string name = user.name;
    name.resize(NAME_SIZE, '\0');
    reply.payload = name + formatNumber(user.refreshInterval);
    return reply;
}

Reply Requests::accessItem(const Request& request) {
    const std::uint32_t access = request.type & ACCESS_MASK;
    const std::uint32_t id = request.type & ~ACCESS_MASK;
    if ((id & FAMILY_MASK) != FAMILY || access == ACCESS_MASK) {
        throw boardError(ERROR_NO_SUCH_ITEM, "unknown procedure", request.type);
    }
    if (access == ACCESS_READ && Items::isPublic(id)) {
        return readPublicItem(request);
    }
    const User user = requireUser(request);
    Reply reply = Reply::make(request.type, answerFor(user, request));
    if (access == ACCESS_EXCHANGE) {
        Items::checkRead(id, &user);
    }
    if (access != ACCESS_READ) {
        m_items.write(id, request.payload, user);
    }
    if (access != ACCESS_WRITE) {
        reply.payload = m_items.read(id, &user);
    }
    return reply;
}

Reply Requests::changePassword(const Request& request, const PasswordCheck& change, bool matches,
                               const std::string& newHash) {
    const User user = requireUser(request);  // the session may have ended meanwhile
    if (!matches) {
        m_state.logEvent({change.user, "password change refused"});
        throw boardError(ERROR_LOGIN_REFUSED, "wrong password");
    }
    if (newHash.empty()) {
        throw boardError(ERROR_BOARD_FAILURE, "cannot hash the password", 0, ACTION_STATE);
    }
    m_sessions.changePassword(change.user, newHash, request.telegram.sessionId,
                              {change.user, "changed the password"});
    return Reply::make(request.type, answerFor(user, request));
}

Reply Requests::readPublicItem(const Request& request) {
    Reply reply = Reply::make(request.type, answerTo(request));
    reply.payload = m_items.read(request.type, nullptr);
    return reply;
}

User Requests::requireUser(const Request& request, bool renew) {
    const auto name = m_sessions.find(request.telegram.sessionId, renew);
    const auto user = name ? m_state.findUser(*name) : std::nullopt;
    if (!user) {
        throw boardError(ERROR_NO_SESSION, "the session is over or never was");
    }
    return *user;
}

}  // namespace ORVLib::Board
