#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "BoardState.h"
#include "Items.h"
#include "Reply.h"
#include "Sessions.h"
#include "Telegram.h"

namespace ORVLib::Board {

/// A request as it arrived: the telegram and, for procedures that have one, the payload.
struct Request {
    std::uint32_t type = 0;
    Telegram telegram;
    std::string payload;
};

/// Carries requests out.
///
/// Login takes two steps, because checking a password is slow: beginLogin() says what is to be
/// checked, endLogin() takes the verdict.
class Requests {
public:
    struct Login {
        std::string user;
        std::string password;
        std::string address;
        std::string hash;  ///< what the password must match
    };

    /// `state` and `sessions` must outlive this.
    Requests(BoardState& state, Sessions& sessions);

    /// True when a payload follows the telegram of such a request.
    static bool hasPayload(std::uint32_t type);

    /// Carries out any request but a login. What goes wrong is in the reply.
    Reply handle(const Request& request);

    /// Throws PException for a payload that is not a login record, and when the state fails.
    Login beginLogin(const Request& request);
    Reply endLogin(const Request& request, const Login& login, bool matches);

private:
    Reply dispatch(const Request& request);
    Reply getLanguage(const Request& request);
    Reply logout(const Request& request);
    Reply checkSession(const Request& request);
    Reply getUserInfo(const Request& request);
    Reply accessItem(const Request& request);
    Reply readPublicItem(const Request& request);
    Reply changePassword(const Request& request, const User& user);
    Reply openSession(const Request& request, const Login& login, bool matches);

    User requireUser(const Request& request, bool renew = true);

    BoardState& m_state;
    Sessions& m_sessions;
    Items m_items;
    std::string m_nobodysHash;
};

}  // namespace ORVLib::Board
