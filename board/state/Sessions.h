#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "state/BoardState.h"
#include "state/EndMarker.h"

namespace ORVLib::Board {

/// The sessions of the users who are logged in.
///
/// A session ends when it has not been used for the timeout. When a user has too many, a new one
/// replaces the one unused for longest. The time of the last use is kept in memory and stored at an
/// interval: after a crash a session may end earlier by that interval.
class Sessions {
public:
    static constexpr std::chrono::seconds STORE_INTERVAL{60};

    /// Restores the sessions of the daemon's previous run, or none when that run could not store
    /// the end of one. `state` must outlive this. The end marker is kept in the file `markerPath`.
    Sessions(BoardState& state, std::chrono::seconds timeout, const std::string& markerPath);

    /// Starts a session and returns its ID: 31 random characters.
    /// `device` is the digest of a device of the user's, or empty.
    std::string open(const std::string& user, const std::string& address, const std::string& device,
                     const Event& event);

    /// The user of a session, which counts as used when `renew` is set; none when it has ended.
    std::optional<std::string> find(const std::string& id, bool renew);

    /// The time after which an unused session ends, and the time left until one ends if nobody uses
    /// it, rounded up. REQUIRES: there is such a session.
    std::chrono::seconds getTimeout() const { return m_timeout; }
    std::chrono::seconds getTimeLeft(const std::string& id) const;

    /// The digest of the session's device; empty without one. REQUIRES: there is such a session.
    const std::string& getDevice(const std::string& id) const { return m_sessions.at(id).device; }
    /// Stores the device as one of the user's. REQUIRES: there is such a session.
    void setDevice(const std::string& id, const std::string& digest);

    /// Keeps a note of the session in memory and returns its ID: 16 hexadecimal digits. The note
    /// takes the place of the one with `replacedId`, otherwise that of the oldest when there are
    /// too many. REQUIRES: there is such a session.
    std::string keepNote(const std::string& id, const std::string& replacedId,
                         const std::string& text);

    /// The session's note with an ID; null without one. REQUIRES: there is such a session.
    const std::string* findNote(const std::string& id, const std::string& noteId) const;

    /// Ends the session, for good even after a crash: an end that cannot be stored is marked, and
    /// store() tries again. Throws when the marker cannot be written either.
    void close(const std::string& id, const Event& event);

    /// Stores a user with a new password or other rights, and ends all of the user's sessions but
    /// `keptId`, which may be of somebody with the old password or the old rights.
    void resetUser(const User& user, const std::string& keptId, const Event& event);

    /// Removes a user and ends the user's sessions.
    void removeUser(const std::string& name, const Event& event);

    /// The sessions that have not ended.
    std::vector<StoredSession> list() const;

    /// Stores the changes since the last call.
    void store();

private:
    using Clock = std::chrono::steady_clock;

    struct Note {
        std::string id;
        std::string text;
    };

    struct Session {
        std::string user;
        std::string address;
        StoredSession::Time loginTime;
        Clock::time_point lastUse;
        std::string device;
        bool used = false;             ///< since it was stored
        std::vector<Note> notes = {};  ///< the oldest first
    };
    using Table = std::unordered_map<std::string, Session>;

    bool isOver(const Session& session) const {
        return Clock::now() - session.lastUse >= m_timeout;
    }
    static StoredSession describe(const std::string& id, const Session& session);
    std::vector<std::string> findSurplus(const std::string& user) const;
    void forget(const std::string& user, const std::string& keptId);
    void update(const std::vector<StoredSession>& used);

    BoardState& m_state;
    std::chrono::seconds m_timeout;
    Table m_sessions;
    EndMarker m_marker;
    std::vector<std::string> m_ended;     ///< but not yet removed from the state
    std::vector<TimedEvent> m_endEvents;  ///< of these ends
};

}  // namespace ORVLib::Board
