#pragma once

#include <chrono>
#include <string>

#include "state/BoardState.h"

namespace ORVLib::Board {

/// The installation of a firmware. It takes as long as on a board, and only changes the version of
/// the product. It fails when the daemon ends before it is finished.
class Installation {
public:
    using Clock = std::chrono::steady_clock;

    /// `state` must outlive this.
    explicit Installation(BoardState& state) : m_state(state) {}

    /// Stores that an installation of the daemon's previous run failed. When this throws
    /// DatabaseError, readProgress() reports the failure all the same.
    void noteInterruption();

    bool isRunning() const { return !m_version.empty(); }

    /// REQUIRES: !isRunning().
    void start(const std::string& version, const std::string& user);

    static bool isProgress(const std::string& content);

    /// The content of ITEM_PROGRESS.
    std::string readProgress();

    /// When finish() is due.
    Clock::time_point getDeadline() const;

    /// Ends the installation when it is time. Throws DatabaseError, and is then due again later.
    void finish();

private:
    BoardState& m_state;
    std::string m_version;  ///< while it runs
    std::string m_user;
    Clock::time_point m_begin;
    Clock::time_point m_end;
};

}  // namespace ORVLib::Board
