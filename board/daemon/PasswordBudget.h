#pragma once

#include <algorithm>
#include <chrono>

namespace ORVLib::Board {

/// A rate limit of passwords: BURST at once, then one each INTERVAL, which is nearly ten a minute.
class PasswordBudget {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::milliseconds INTERVAL{6500};
    static constexpr int BURST = 3;

    /// When the next password may be checked; a time in the past means now.
    Clock::time_point getNext() const { return m_full - (BURST - 1) * INTERVAL; }

    /// True when the next BURST passwords may be checked at once.
    bool isFull(Clock::time_point now) const { return m_full <= now; }

    /// REQUIRES: getNext() <= now.
    void take(Clock::time_point now) { m_full = std::max(m_full, now) + INTERVAL; }

    /// Returns what a password took that was right, or was not checked.
    void giveBack() { m_full -= INTERVAL; }

private:
    Clock::time_point m_full;  ///< when the budget is full again
};

}  // namespace ORVLib::Board
