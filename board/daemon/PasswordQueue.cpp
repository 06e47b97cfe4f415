#include "daemon/PasswordQueue.h"

#include <algorithm>
#include <map>

namespace ORVLib::Board {

namespace {

constexpr std::size_t PLACES = 64;
/// With the longest delay, two passwords of a name can be tried in a second, from however many
/// places; from fewer than eight addresses nobody else is kept from trying it.
constexpr std::size_t PLACES_OF_A_NAME = 8;

}  // namespace

std::optional<std::uint64_t> PasswordQueue::add(Attempt attempt, bool delayed) {
    attempt.turn = nextTurn(attempt.source);
    const std::string name = attempt.name;
    m_attempts.push_back(std::move(attempt));
    if (delayed) {
        const auto outOfName = makeRoom(
            PLACES_OF_A_NAME, [&name](const Attempt& waiting) { return waiting.name == name; });
        if (outOfName) {
            return outOfName;
        }
    }
    return makeRoom(PLACES, [](const Attempt&) { return true; });
}

/// Behind all turns of the same source. The next turn at the earliest, so that nobody who waits is
/// overtaken for ever.
std::uint64_t PasswordQueue::nextTurn(const std::string& source) const {
    std::uint64_t last = m_turn;
    for (const Attempt& waiting : m_attempts) {
        if (waiting.source == source) {
            last = std::max(last, waiting.turn);
        }
    }
    return last + 1;
}

/// When more attempts count than there are places for, the last one of the source that has the
/// most of them goes; of several such sources, the one that came last.
template <typename Counts>
std::optional<std::uint64_t> PasswordQueue::makeRoom(std::size_t places, Counts counts) {
    std::map<std::string, std::size_t> held;
    std::size_t all = 0;
    std::size_t most = 0;
    for (const Attempt& waiting : m_attempts) {
        if (counts(waiting)) {
            ++all;
            most = std::max(most, ++held[waiting.source]);
        }
    }
    if (all <= places) {
        return std::nullopt;
    }
    const auto last = std::find_if(
        m_attempts.rbegin(), m_attempts.rend(),
        [&](const auto& waiting) { return counts(waiting) && held[waiting.source] == most; });
    const std::uint64_t ticket = last->job.ticket;
    m_attempts.erase(std::next(last).base());
    return ticket;
}

std::optional<PasswordWorker::Job> PasswordQueue::take(Clock::time_point now) {
    auto next = m_attempts.end();
    for (auto at = m_attempts.begin(); at != m_attempts.end(); ++at) {
        if (at->due <= now && (next == m_attempts.end() || at->turn < next->turn)) {
            next = at;
        }
    }
    if (next == m_attempts.end()) {
        return std::nullopt;
    }
    m_turn = std::max(m_turn, next->turn);
    PasswordWorker::Job job = std::move(next->job);
    m_attempts.erase(next);
    return job;
}

void PasswordQueue::cancel(std::uint64_t ticket) {
    const auto found =
        std::find_if(m_attempts.begin(), m_attempts.end(),
                     [ticket](const Attempt& attempt) { return attempt.job.ticket == ticket; });
    if (found != m_attempts.end()) {
        m_attempts.erase(found);
    }
}

PasswordQueue::Clock::time_point PasswordQueue::getDue() const {
    auto due = Clock::time_point::max();
    for (const Attempt& attempt : m_attempts) {
        due = std::min(due, attempt.due);
    }
    return due;
}

}  // namespace ORVLib::Board
