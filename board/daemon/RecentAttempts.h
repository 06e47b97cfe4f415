#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

namespace ORVLib::Board {

/// Counts the recent attempts of sources. Each count halves within HALF_LIFE.
///
/// A source is identified by a digest of its name. The number of sources is bounded: beyond it, the
/// source with the lowest count is forgotten.
class RecentAttempts {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::minutes HALF_LIFE{10};

    explicit RecentAttempts(std::size_t capacity) : m_capacity(capacity) {}

    void note(std::uint64_t source, Clock::time_point now);

    /// The source's attempts, rounded; 0 for an unknown source.
    int count(std::uint64_t source, Clock::time_point now) const;

    void forget(std::uint64_t source);

private:
    struct Entry {
        std::uint64_t source;
        double attempts;
        Clock::time_point last;

        double getAttempts(Clock::time_point now) const;
    };

    void makeRoom(Clock::time_point now);

    std::size_t m_capacity;
    std::vector<Entry> m_entries;
};

}  // namespace ORVLib::Board
