#include "daemon/PasswordQueue.h"

#include <algorithm>
#include <iterator>

#include "protocol/Digest.h"
#include "wire/Protocol.h"

namespace ORVLib::Board {

namespace {

constexpr std::ptrdiff_t STRANGERS = 64;  ///< that wait at a time
constexpr std::ptrdiff_t KNOWN = 64;      ///< that wait at a time
constexpr std::ptrdiff_t PLACES_OF_A_SOURCE = 20;
constexpr std::size_t NAMES = 1024;
constexpr std::size_t SOURCES_OF_A_NAME = 128;
constexpr std::size_t ADDRESSES = 1024;

/// After so many known sources a stranger is served: the holder of an account must not be able to
/// lock out users who log in from a new place.
constexpr int MOST_KNOWN_IN_A_ROW = 4;

}  // namespace

PasswordQueue::PasswordQueue(std::string key)
    : m_key(std::move(key)),
      m_names(NAMES, Name{PasswordBudget(), RecentAttempts(SOURCES_OF_A_NAME)}),
      m_addresses(ADDRESSES) {}

std::optional<std::uint64_t> PasswordQueue::add(Attempt attempt, Clock::time_point now) {
    Waiting waiting{std::move(attempt), 0, 0, now, 0, false};
    waiting.source = digestOf(waiting.attempt.source);
    if (waiting.attempt.isKnown) {
        forgetFullBudgets(now);
        waiting.turn = nextTurn(waiting.attempt.account);
        waiting.mayGo = waiting.attempt.isFree;
    } else {
        waiting.name = digestOf(waiting.attempt.account) % NAMES;
        noteAttempt(waiting);
    }
    grant(now);
    if (std::count_if(m_attempts.begin(), m_attempts.end(), [&](const Waiting& other) {
            return isTwin(waiting, other);
        }) >= PLACES_OF_A_SOURCE) {
        return waiting.attempt.job.ticket;
    }
    const bool isKnown = waiting.attempt.isKnown;
    m_attempts.push_back(std::move(waiting));
    grant(now);
    return makeRoom(isKnown, now);
}

/// True for attempts of one source and budget that both wait for the budget, or both have it.
bool PasswordQueue::isTwin(const Waiting& left, const Waiting& right) const {
    return left.mayGo == right.mayGo && left.attempt.isKnown == right.attempt.isKnown &&
           left.source == right.source && left.name == right.name;
}

std::uint64_t PasswordQueue::digestOf(const std::string& text) const {
    Digest digest;
    digest.add(m_key);
    digest.add(text);
    const std::string bytes = digest.get();
    return std::uint64_t{readNumber(bytes, 0)} << 32U | readNumber(bytes, 4);
}

void PasswordQueue::noteAttempt(const Waiting& waiting) {
    m_names[waiting.name].sources.note(waiting.source, waiting.since);
    m_addresses.note(waiting.source, waiting.since);
}

PasswordBudget& PasswordQueue::budgetOf(const Waiting& waiting) {
    return waiting.attempt.isKnown ? m_knownBudgets[waiting.attempt.source]
                                   : m_names[waiting.name].budget;
}

/// When the budget lets another attempt go.
PasswordQueue::Clock::time_point PasswordQueue::nextOf(const Waiting& waiting) const {
    if (!waiting.attempt.isKnown) {
        return m_names[waiting.name].budget.getNext();
    }
    const auto budget = m_knownBudgets.find(waiting.attempt.source);
    return budget != m_knownBudgets.end() ? budget->second.getNext() : Clock::time_point();
}

void PasswordQueue::forgetFullBudgets(Clock::time_point now) {
    for (auto at = m_knownBudgets.begin(); at != m_knownBudgets.end();) {
        at = at->second.isFull(now) ? m_knownBudgets.erase(at) : std::next(at);
    }
}

/// The turn after all turns of the same account, and the next turn at the earliest, so that no
/// attempt is overtaken for ever.
std::uint64_t PasswordQueue::nextTurn(const std::string& account) const {
    std::uint64_t last = m_turn;
    for (const Waiting& waiting : m_attempts) {
        if (waiting.attempt.isKnown && waiting.attempt.account == account) {
            last = std::max(last, waiting.turn);
        }
    }
    return last + 1;
}

/// Lets attempts go as far as the budgets allow.
void PasswordQueue::grant(Clock::time_point now) {
    for (auto next = findNextToGrant(now); next != m_attempts.end(); next = findNextToGrant(now)) {
        budgetOf(*next).take(now);
        next->mayGo = true;
    }
}

PasswordQueue::Attempts::iterator PasswordQueue::findNextToGrant(Clock::time_point now) {
    auto best = m_attempts.end();
    int fewest = 0;
    for (auto at = m_attempts.begin(); at != m_attempts.end(); ++at) {
        if (at->mayGo || nextOf(*at) > now) {
            continue;
        }
        const int count =
            at->attempt.isKnown ? 0 : m_names[at->name].sources.count(at->source, now);
        if (best == m_attempts.end() || count <= fewest) {
            best = at;
            fewest = count;
        }
    }
    return firstTwin(best);
}

/// The attempt that has waited longest of those with the same source and budget.
PasswordQueue::Attempts::iterator PasswordQueue::firstTwin(Attempts::iterator waiting) {
    return waiting == m_attempts.end()
               ? waiting
               : std::find_if(m_attempts.begin(), waiting,
                              [&](const Waiting& other) { return isTwin(*waiting, other); });
}

/// Enforces the number of places. Returns the ticket of the attempt that loses its place.
std::optional<std::uint64_t> PasswordQueue::makeRoom(bool isKnown, Clock::time_point now) {
    const auto all = std::count_if(
        m_attempts.begin(), m_attempts.end(),
        [isKnown](const Waiting& waiting) { return waiting.attempt.isKnown == isKnown; });
    const auto victim = findVictim(isKnown, now);
    if (all <= (isKnown ? KNOWN : STRANGERS) || victim == m_attempts.end()) {
        return std::nullopt;
    }
    const std::uint64_t ticket = victim->attempt.job.ticket;
    drop(victim);
    return ticket;
}

/// The newest attempt of the user, or the address of strangers, with most entries. When each has
/// one, that of the address with most recent attempts.
PasswordQueue::Attempts::iterator PasswordQueue::findVictim(bool isKnown, Clock::time_point now) {
    const auto holderOf = [isKnown](const Waiting& waiting) {
        return isKnown ? waiting.attempt.account : waiting.attempt.source;
    };
    std::map<std::string, std::size_t> held;
    auto victim = m_attempts.end();
    for (const Waiting& waiting : m_attempts) {
        held[holderOf(waiting)] += waiting.attempt.isKnown == isKnown ? 1 : 0;
    }
    std::pair<std::size_t, int> most;
    for (auto at = m_attempts.begin(); at != m_attempts.end(); ++at) {
        if (at->attempt.isKnown != isKnown) {
            continue;
        }
        const std::pair<std::size_t, int> has(held[holderOf(*at)],
                                              isKnown ? 0 : m_addresses.count(at->source, now));
        if (victim == m_attempts.end() || has > most || (has == most && has.first > 1)) {
            victim = at;
            most = has;
        }
    }
    return victim;
}

/// Removes an attempt that will not be checked.
void PasswordQueue::drop(Attempts::iterator waiting) {
    if (waiting->mayGo && !waiting->attempt.isFree) {
        budgetOf(*waiting).giveBack();
    }
    m_attempts.erase(waiting);
}

std::optional<PasswordWorker::Job> PasswordQueue::take(Clock::time_point now) {
    grant(now);
    const auto known = findKnown();
    const auto stranger = findStranger(now);
    const bool isStrangersTurn =
        known == m_attempts.end() ||
        (m_knownInARow >= MOST_KNOWN_IN_A_ROW && stranger != m_attempts.end());
    const auto next = isStrangersTurn ? stranger : known;
    if (next == m_attempts.end()) {
        return std::nullopt;
    }
    m_knownInARow = isStrangersTurn ? 0 : m_knownInARow + 1;
    m_turn = std::max(m_turn, next->turn);
    m_taken = std::move(*next);
    m_attempts.erase(next);
    return std::move(m_taken->attempt.job);
}

PasswordQueue::Attempts::iterator PasswordQueue::findKnown() {
    auto best = m_attempts.end();
    for (auto at = m_attempts.begin(); at != m_attempts.end(); ++at) {
        if (at->mayGo && at->attempt.isKnown &&
            (best == m_attempts.end() || at->turn < best->turn)) {
            best = at;
        }
    }
    return best;
}

PasswordQueue::Attempts::iterator PasswordQueue::findStranger(Clock::time_point now) {
    auto best = m_attempts.end();
    int fewest = 0;
    for (auto at = m_attempts.begin(); at != m_attempts.end(); ++at) {
        if (!at->mayGo || at->attempt.isKnown) {
            continue;
        }
        const int count = m_addresses.count(at->source, now);
        if (best == m_attempts.end() || count <= fewest) {
            best = at;
            fewest = count;
        }
    }
    return firstTwin(best);
}

void PasswordQueue::finish(bool isRight) {
    if (!m_taken) {
        return;
    }
    if (isRight && !m_taken->attempt.isFree) {
        budgetOf(*m_taken).giveBack();
    }
    if (isRight && !m_taken->attempt.isKnown) {
        m_names[m_taken->name].sources.forget(m_taken->source);
    }
    m_taken.reset();
}

void PasswordQueue::cancel(std::uint64_t ticket) {
    const auto found = std::find_if(
        m_attempts.begin(), m_attempts.end(),
        [ticket](const Waiting& waiting) { return waiting.attempt.job.ticket == ticket; });
    if (found != m_attempts.end()) {
        drop(found);
    }
}

std::vector<std::uint64_t> PasswordQueue::expire(Clock::time_point now) {
    std::vector<std::uint64_t> tickets;
    while (!m_attempts.empty() && m_attempts.front().since + PATIENCE <= now) {
        tickets.push_back(m_attempts.front().attempt.job.ticket);
        drop(m_attempts.begin());
    }
    return tickets;
}

PasswordQueue::Clock::time_point PasswordQueue::getDue(bool isIdle) const {
    auto due = m_attempts.empty() ? Clock::time_point::max() : m_attempts.front().since + PATIENCE;
    if (isIdle) {
        for (const Waiting& waiting : m_attempts) {
            due = std::min(due, waiting.mayGo ? Clock::time_point() : nextOf(waiting));
        }
    }
    return due;
}

}  // namespace ORVLib::Board
