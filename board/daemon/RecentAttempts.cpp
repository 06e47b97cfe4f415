#include "daemon/RecentAttempts.h"

#include <algorithm>
#include <cmath>

namespace ORVLib::Board {

double RecentAttempts::Entry::getAttempts(Clock::time_point now) const {
    const std::chrono::duration<double> age = now - last;
    return attempts * std::exp2(-age / std::chrono::duration<double>(HALF_LIFE));
}

void RecentAttempts::note(std::uint64_t source, Clock::time_point now) {
    for (Entry& entry : m_entries) {
        if (entry.source == source) {
            entry = {source, entry.getAttempts(now) + 1, now};
            return;
        }
    }
    makeRoom(now);
    m_entries.push_back({source, 1, now});
}

int RecentAttempts::count(std::uint64_t source, Clock::time_point now) const {
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(),
                     [source](const Entry& entry) { return entry.source == source; });
    return found != m_entries.end() ? static_cast<int>(std::lround(found->getAttempts(now))) : 0;
}

void RecentAttempts::forget(std::uint64_t source) {
    m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                   [source](const Entry& entry) { return entry.source == source; }),
                    m_entries.end());
}

void RecentAttempts::makeRoom(Clock::time_point now) {
    if (m_entries.size() < m_capacity) {
        return;
    }
    m_entries.erase(std::min_element(m_entries.begin(), m_entries.end(),
                                     [now](const Entry& left, const Entry& right) {
                                         return left.getAttempts(now) < right.getAttempts(now);
                                     }));
}

}  // namespace ORVLib::Board
