#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "daemon/PasswordWorker.h"

namespace ORVLib::Board {

/// The passwords that wait to be checked: until an attempt's delay is over and its turn has come.
///
/// Places are bounded, all of them and those of a name that has to wait. Where there is none left,
/// whoever holds the most of them gives one up, and turns go round: somebody who floods the board
/// with attempts waits behind himself, and keeps nobody out who comes from elsewhere.
class PasswordQueue {
public:
    using Clock = std::chrono::steady_clock;

    struct Attempt {
        PasswordWorker::Job job;
        std::string name;    ///< whose password it is; empty when none is compared
        std::string source;  ///< who tries: the address of a log-in, otherwise the user
        Clock::time_point due;
        std::uint64_t turn = 0;  ///< given by add()
    };

    /// Takes an attempt in. `delayed` ones share the few places of their name. Returns the ticket
    /// of the one that had to make way, which may be this one.
    std::optional<std::uint64_t> add(Attempt attempt, bool delayed);

    /// The next attempt that is due, if there is one.
    std::optional<PasswordWorker::Job> take(Clock::time_point now);

    /// Forgets an attempt.
    void cancel(std::uint64_t ticket);

    /// When the next attempt is due; far in the future when none waits.
    Clock::time_point getDue() const;

private:
    std::uint64_t nextTurn(const std::string& source) const;
    template <typename Counts>
    std::optional<std::uint64_t> makeRoom(std::size_t places, Counts counts);

    std::vector<Attempt> m_attempts;  ///< in the order they came
    std::uint64_t m_turn = 0;         ///< of the attempt that was taken last
};

}  // namespace ORVLib::Board
