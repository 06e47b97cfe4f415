#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "daemon/PasswordBudget.h"
#include "daemon/PasswordWorker.h"
#include "daemon/RecentAttempts.h"

namespace ORVLib::Board {

/// The queue of passwords to check, with rate limits: guessing is slow, and does not lock out a
/// user who knows the password.
///
/// An attempt comes from a *known* source, which only the user has (a browser the user logged in
/// from, a session), or from a stranger, whose source is an address. Each known source has a budget
/// of its own. All strangers who try one name share one, whether there is such a user or not. A
/// right password costs nothing of it.
///
/// Of the strangers who wait for a name's budget, the source with the fewest recent attempts is
/// served first, of several the newest one: addresses that continue guessing are served after one
/// that has just begun. The attempts of one source are served in the order they came. A source can
/// have a few attempts in the queue; a further one is refused, so that a flood through an address
/// does not displace the attempts of others there.
class PasswordQueue {
public:
    using Clock = std::chrono::steady_clock;

    /// How long an attempt waits before it expires; a page waits for ten seconds in all.
    static constexpr std::chrono::milliseconds PATIENCE{8500};

    struct Attempt {
        PasswordWorker::Job job;
        std::string account;   ///< whose password it is; of a known source, whose source it is
        std::string source;    ///< who tries
        bool isKnown = false;  ///< the source
        bool isFree = false;   ///< compares no password, so there is nothing to guess
    };

    /// `key` decides which names share a budget. REQUIRES: nobody can guess it.
    explicit PasswordQueue(std::string key);

    /// Adds an attempt. Returns the ticket of the attempt that lost its place for it, which may be
    /// this one.
    std::optional<std::uint64_t> add(Attempt attempt, Clock::time_point now);

    /// The next attempt that may be checked now, if there is one.
    std::optional<PasswordWorker::Job> take(Clock::time_point now);

    /// Sets the result of the attempt that was taken last.
    void finish(bool isRight);

    /// Removes a waiting attempt.
    void cancel(std::uint64_t ticket);

    /// Removes the attempts that have waited too long, and returns their tickets.
    std::vector<std::uint64_t> expire(Clock::time_point now);

    /// When take(), if the worker is idle, or expire() has something to do.
    Clock::time_point getDue(bool isIdle) const;

private:
    struct Waiting {
        Attempt attempt;
        std::uint64_t source;
        std::size_t name;  ///< of a stranger: the place of the account's name
        Clock::time_point since;
        std::uint64_t turn;  ///< of a known source
        bool mayGo = false;  ///< its part of the budget is taken
    };
    using Attempts = std::vector<Waiting>;

    /// The state of a name that strangers try. A few names share one.
    struct Name {
        PasswordBudget budget;
        RecentAttempts sources;
    };

    std::uint64_t digestOf(const std::string& text) const;
    PasswordBudget& budgetOf(const Waiting& waiting);
    Clock::time_point nextOf(const Waiting& waiting) const;
    bool isTwin(const Waiting& left, const Waiting& right) const;
    std::uint64_t nextTurn(const std::string& account) const;
    void noteAttempt(const Waiting& waiting);
    void forgetFullBudgets(Clock::time_point now);
    void grant(Clock::time_point now);
    Attempts::iterator firstTwin(Attempts::iterator waiting);
    Attempts::iterator findNextToGrant(Clock::time_point now);
    Attempts::iterator findKnown();
    Attempts::iterator findStranger(Clock::time_point now);
    std::optional<std::uint64_t> makeRoom(bool isKnown, Clock::time_point now);
    Attempts::iterator findVictim(bool isKnown, Clock::time_point now);
    void drop(Attempts::iterator waiting);

    std::string m_key;
    std::vector<Name> m_names;
    RecentAttempts m_addresses;  ///< of strangers, whichever names they try
    std::map<std::string, PasswordBudget> m_knownBudgets;  ///< those not full, by source
    Attempts m_attempts;                                   ///< in the order they came
    std::optional<Waiting> m_taken;
    std::uint64_t m_turn = 0;  ///< of the known source that was taken last
    int m_knownInARow = 0;
};

}  // namespace ORVLib::Board
