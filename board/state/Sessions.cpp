#include "state/Sessions.h"

#include <algorithm>

#include "common/Hex.h"
#include "orv/OrvTrace.h"
#include "wire/Protocol.h"
#include "wire/Random.h"

namespace ORVLib::Board {

namespace {

constexpr std::size_t MAX_SESSIONS_PER_USER = 64;

// 64 characters, six random bits each, and none that a cookie or an address gives a meaning.
constexpr char ID_CHARACTERS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

std::string randomId() {
    std::string id = randomBytes(MAX_SESSION_ID_LENGTH);
    for (char& character : id) {
        character = ID_CHARACTERS[static_cast<unsigned char>(character) & 63U];
    }
    return id;
}

}  // namespace

Sessions::Sessions(BoardState& state, std::chrono::seconds timeout, const std::string& markerPath)
    : m_state(state), m_timeout(timeout), m_marker(markerPath) {
    const auto now = std::chrono::system_clock::now();
    for (const StoredSession& stored : m_state.readSessions()) {
        const auto unused = now - stored.lastUse;
        if (unused >= m_timeout || m_marker.isSet()) {
            m_ended.push_back(stored.id);
            continue;
        }
        m_sessions[stored.id] = {
            stored.user,      stored.address,
            stored.loginTime, Clock::now() - std::chrono::duration_cast<Clock::duration>(unused),
            stored.device,    false};
    }
}

std::string Sessions::open(const std::string& user, const std::string& address,
                           const std::string& device, const Event& event) {
    std::string id = randomId();
    const auto now = std::chrono::system_clock::now();
    const std::vector<std::string> surplus = findSurplus(user);
    m_state.addSession({id, user, address, now, now, device}, surplus, event);
    for (const std::string& ended : surplus) {
        m_sessions.erase(ended);
    }
    m_sessions[id] = {user, address, now, Clock::now(), device, false};
    return id;
}

// The longest unused sessions of a user who has no room for another one.
std::vector<std::string> Sessions::findSurplus(const std::string& user) const {
    std::vector<std::pair<Clock::time_point, std::string>> uses;
    for (const auto& [id, session] : m_sessions) {
        if (session.user == user) {
            uses.emplace_back(session.lastUse, id);
        }
    }
    std::sort(uses.begin(), uses.end());
    std::vector<std::string> surplus;
    for (std::size_t n = 0; n + MAX_SESSIONS_PER_USER <= uses.size(); ++n) {
        surplus.push_back(uses[n].second);
    }
    return surplus;
}

std::optional<std::string> Sessions::find(const std::string& id, bool renew) {
    const auto found = m_sessions.find(id);
    if (found == m_sessions.end() || isOver(found->second)) {
        return std::nullopt;
    }
    if (renew) {
        found->second.lastUse = Clock::now();
        found->second.used = true;
    }
    return found->second.user;
}

std::chrono::seconds Sessions::getTimeLeft(const std::string& id) const {
    const auto unused = Clock::now() - m_sessions.at(id).lastUse;
    return std::max(std::chrono::ceil<std::chrono::seconds>(m_timeout - unused),
                    std::chrono::seconds(1));
}

void Sessions::setDevice(const std::string& id, const std::string& digest) {
    Session& session = m_sessions.at(id);
    m_state.addDevice(digest, session.user, id);
    session.device = digest;
}

std::string Sessions::keepNote(const std::string& id, const std::string& replacedId,
                               const std::string& text) {
    constexpr std::size_t MAX_NOTES = 6;
    constexpr std::size_t ID_BYTES = 8;
    std::vector<Note>& notes = m_sessions.at(id).notes;
    const auto isReplaced = [&](const Note& note) { return note.id == replacedId; };
    notes.erase(std::remove_if(notes.begin(), notes.end(), isReplaced), notes.end());
    if (notes.size() == MAX_NOTES) {
        notes.erase(notes.begin());
    }
    notes.push_back({formatHex(randomBytes(ID_BYTES)), text});
    return notes.back().id;
}

const std::string* Sessions::findNote(const std::string& id, const std::string& noteId) const {
    for (const Note& note : m_sessions.at(id).notes) {
        if (note.id == noteId) {
            return &note.text;
        }
    }
    return nullptr;
}

void Sessions::close(const std::string& id, const Event& event) {
    m_sessions.erase(id);
    try {
        m_state.removeSession(id, event);
    } catch (const DatabaseError& error) {
        m_ended.push_back(id);
        m_endEvents.push_back({event, m_state.getTime()});
        trace::OrvTrace(2, 1, 5).putLog(
            0, std::string("an ended session is stored later: ") + error.what());
        m_marker.set(true);
    }
}

void Sessions::resetUser(const User& user, const std::string& keptId, const Event& event) {
    m_state.resetUser(user, keptId, event);
    forget(user.name, keptId);
}

void Sessions::removeUser(const std::string& name, const Event& event) {
    m_state.removeUser(name, event);
    forget(name, "");
}

std::vector<StoredSession> Sessions::list() const {
    std::vector<StoredSession> sessions;
    for (const auto& [id, session] : m_sessions) {
        if (!isOver(session)) {
            sessions.push_back(describe(id, session));
        }
    }
    return sessions;
}

void Sessions::forget(const std::string& user, const std::string& keptId) {
    for (auto at = m_sessions.begin(); at != m_sessions.end();) {
        const bool ends = at->second.user == user && at->first != keptId;
        at = ends ? m_sessions.erase(at) : std::next(at);
    }
}

StoredSession Sessions::describe(const std::string& id, const Session& session) {
    const auto unused =
        std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - session.lastUse);
    return {id,
            session.user,
            session.address,
            session.loginTime,
            std::chrono::system_clock::now() - unused,
            session.device};
}

void Sessions::store() {
    for (auto at = m_sessions.begin(); at != m_sessions.end();) {
        if (isOver(at->second)) {
            m_ended.push_back(at->first);
            at = m_sessions.erase(at);
        } else {
            ++at;
        }
    }
    std::vector<StoredSession> used;
    for (const auto& [id, session] : m_sessions) {
        if (session.used) {
            used.push_back(describe(id, session));
        }
    }
    if (used.empty() && m_ended.empty() && !m_marker.isSet()) {
        return;
    }
    update(used);
    for (const StoredSession& session : used) {
        m_sessions[session.id].used = false;
    }
}

void Sessions::update(const std::vector<StoredSession>& used) {
    try {
        m_state.updateSessions(used, m_ended, m_endEvents);
    } catch (const DatabaseError&) {
        if (!m_ended.empty()) {
            m_marker.set(true);
        }
        throw;
    }
    m_ended.clear();
    m_endEvents.clear();
    if (m_marker.isSet()) {
        m_marker.set(false);
    }
}

}  // namespace ORVLib::Board
