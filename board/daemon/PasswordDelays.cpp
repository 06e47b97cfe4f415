#include "daemon/PasswordDelays.h"

#include <algorithm>
#include <iterator>

#include "wire/Digest.h"
#include "wire/Telegram.h"

namespace ORVLib::Board {

namespace {

/// By the failures before. The longest one leaves a page, which waits for ten seconds, time enough
/// for the check itself.
constexpr std::chrono::milliseconds DELAYS[] = {
    std::chrono::milliseconds(0),    std::chrono::milliseconds(0),
    std::chrono::milliseconds(0),    std::chrono::milliseconds(0),
    std::chrono::milliseconds(0),    std::chrono::milliseconds(500),
    std::chrono::milliseconds(1000), std::chrono::milliseconds(2000),
    std::chrono::milliseconds(4000)};

constexpr std::size_t LAST_DELAY = std::size(DELAYS) - 1;

}  // namespace

std::chrono::milliseconds PasswordDelays::find(const std::string& name,
                                               Clock::time_point now) const {
    return DELAYS[failuresOf(m_places[placeOf(name)], now)];
}

void PasswordDelays::noteFailure(const std::string& name, Clock::time_point now) {
    Place& place = m_places[placeOf(name)];
    place = {std::min(failuresOf(place, now) + 1, LAST_DELAY), now};
}

std::size_t PasswordDelays::placeOf(const std::string& name) const {
    Digest digest;
    digest.add(m_key);
    digest.add(name);
    return readNumber(digest.get(), 0) % m_places.size();
}

std::size_t PasswordDelays::failuresOf(const Place& place, Clock::time_point now) {
    return now - place.last < FORGOTTEN_AFTER ? place.failures : 0;
}

}  // namespace ORVLib::Board
