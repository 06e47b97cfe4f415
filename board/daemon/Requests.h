#pragma once

#include <optional>
#include <string>

#include "daemon/Reply.h"
#include "daemon/Request.h"
#include "item/Items.h"
#include "state/BoardState.h"
#include "state/Sessions.h"

namespace ORVLib::Board {

/// Executes requests.
///
/// A request with a password takes two steps, because checking a password is slow:
/// beginPasswordCheck() returns the check to make, endPasswordCheck() takes its result.
class Requests {
public:
    struct PasswordCheck {
        std::string user;  ///< of the password; empty when none is compared
        std::string password;
        std::optional<std::string> hash;  ///< the password must match it; none: not compared
        std::string address;              ///< of a log-in's client
        std::string device;       ///< digest of the ID of the device, if it is one of the user's
        std::string newPassword;  ///< the password after a change
        std::string account;      ///< the user whose rate limit applies
        std::string source;       ///< of the attempt: see PasswordQueue
        bool isKnown = false;     ///< the source is the account's own
    };

    /// The parts must outlive this.
    explicit Requests(const Parts& parts);

    /// Executes a request without a password. Errors are in the reply.
    Reply handle(const Request& request);

    /// Throws PException for a request that is refused before its password is checked, and when the
    /// state fails.
    PasswordCheck beginPasswordCheck(const Request& request);

    /// `newHash` is that of the new password, if there is one and the password matches.
    Reply endPasswordCheck(const Request& request, const PasswordCheck& check, bool matches,
                           const std::string& newHash);

private:
    Reply dispatch(const Request& request);
    Reply getLanguage(const Request& request);
    Reply logout(const Request& request);
    Reply checkSession(const Request& request);
    Reply getUserInfo(const Request& request);
    Reply accessItem(const Request& request);
    Reply readPublicItem(const Request& request);
    PasswordCheck beginLogin(const Request& request);
    void noteDevice(PasswordCheck& login, const std::string& digest);
    PasswordCheck beginItemWrite(const Request& request);
    Reply openSession(const Request& request, const PasswordCheck& login, bool matches);
    Reply writeWithPassword(const Request& request, const PasswordCheck& check, bool matches,
                            const std::string& newHash);

    Caller requireCaller(const Request& request, bool renew = false);

    BoardState& m_state;
    Sessions& m_sessions;
    Items m_items;
    std::string m_nobodysHash;
};

}  // namespace ORVLib::Board
