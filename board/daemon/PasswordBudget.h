#pragma once

#include <algorithm>
#include <chrono>

namespace ORVLib::Board {

/// How many passwords may be tried: BURST at once, and then one each INTERVAL, which is ten within
/// any minute.
class PasswordBudget {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::milliseconds INTERVAL{6500};
    static constexpr int BURST = 3;

    /// When the next password may be tried; it may have been possible for long.
    Clock::time_point getNext() const { return m_full - (BURST - 1) * INTERVAL; }

    /// True when nothing of it has been used lately.
    bool isFull(Clock::time_point now) const { return m_full <= now; }

    /// REQUIRES: getNext() <= now.
    void take(Clock::time_point now) { m_full = std::max(m_full, now) + INTERVAL; }

    /// For a password that was right, or was not tried. REQUIRES: it was taken.
    void giveBack() { m_full -= INTERVAL; }

private:
    Clock::time_point m_full;  ///< when nothing is missing any more
};

}  // namespace ORVLib::Board
