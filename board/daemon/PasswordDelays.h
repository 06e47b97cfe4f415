#pragma once

#include <array>
#include <chrono>
#include <string>

namespace ORVLib::Board {

/// How long somebody who tries a user's password has to wait, so that guessing is not worth it.
///
/// Failures count for a name, whether there is such a user or not: the wait must not tell. Nothing
/// is refused on their account, and they are forgotten FORGOTTEN_AFTER the last one, not at a
/// success: the user's own log-ins must not give somebody who guesses new free attempts.
///
/// The table has a fixed size, so that names nobody has cannot fill it. A few names share a place;
/// which ones cannot be told without the key, and the worst that comes of it is the longest delay.
class PasswordDelays {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::minutes FORGOTTEN_AFTER{10};

    /// `key` decides which names share a place. REQUIRES: nobody can guess it.
    explicit PasswordDelays(std::string key) : m_key(std::move(key)) {}

    /// How long an attempt that is made now waits before its password is looked at.
    std::chrono::milliseconds find(const std::string& name, Clock::time_point now) const;

    void noteFailure(const std::string& name, Clock::time_point now);

private:
    struct Place {
        std::size_t failures = 0;
        Clock::time_point last;
    };

    std::size_t placeOf(const std::string& name) const;
    static std::size_t failuresOf(const Place& place, Clock::time_point now);

    std::string m_key;
    std::array<Place, 1024> m_places;
};

}  // namespace ORVLib::Board
