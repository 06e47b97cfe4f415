#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "state/Database.h"
#include "state/Event.h"
#include "wire/Telegram.h"

namespace ORVLib::Board {

struct User {
    std::string name;
    std::string passwordHash;
    Authority authority;
    unsigned char language = 0;
    std::uint32_t refreshInterval = 0;  ///< seconds, 0 for none
    std::string eventFilter;            ///< a record; empty until the user sets one
};

/// A session as it is kept for the daemon's next start.
struct StoredSession {
    using Time = std::chrono::system_clock::time_point;

    std::string id;
    std::string user;
    std::string address;
    Time loginTime;
    Time lastUse;
    std::string device;  ///< digest of the ID of the browser; empty for one that has none
};

/// Items by their IDs.
using StoredItems = std::map<std::uint32_t, std::string>;

/// Everything the board keeps: users, information items, sessions and the event log.
///
/// An operation that changes something and the events that tell of it are stored together, and
/// are there after a crash once the operation has returned. Failures are DatabaseErrors.
class BoardState {
public:
    /// Opens the file, or makes that of the sample board. Throws std::runtime_error, with a line
    /// for the administrator, for a file that cannot be used; such a file is left as it is.
    explicit BoardState(const std::string& path);

    std::optional<User> findUser(const std::string& name);
    /// All users, in the order of their names.
    std::vector<User> readUsers();
    /// Adds the user, or replaces the one with this name.
    void storeUser(const User& user, const Event& event);
    /// As storeUser(), and ends all of the user's sessions but `keptSession`. With another password
    /// all of the user's devices are forgotten but that session's.
    void resetUser(const User& user, const std::string& keptSession, const Event& event);
    /// Ends the user's sessions too.
    void removeUser(const std::string& name, const Event& event);

    std::optional<std::string> readItem(std::uint32_t id);
    void writeItem(std::uint32_t id, const std::string& content, const Event& event);
    void writeItems(const StoredItems& contents, const std::vector<Event>& events);

    std::vector<StoredSession> readSessions();
    /// True for a device that some user has.
    bool hasDevice(const std::string& digest);
    /// True for a device of this user.
    bool hasDevice(const std::string& digest, const std::string& user);
    /// Adds the session's device to its user's. The one unused for longest may be removed for it.
    void addDevice(const std::string& digest, const std::string& user, const std::string& session);

    /// Also removes the sessions in `ended`, so that the limit allows `session`.
    void addSession(const StoredSession& session, const std::vector<std::string>& ended,
                    const Event& event);
    void removeSession(const std::string& id, const Event& event);
    /// Stores last uses and forgets sessions, all at once.
    void updateSessions(const std::vector<StoredSession>& used,
                        const std::vector<std::string>& ended,
                        const std::vector<TimedEvent>& events);

    /// Keeps a bounded number of events of each code. Where there are more, the user who has most
    /// of them loses the oldest, so that no user can push out the events of others or of the
    /// hardware.
    /// Refused log-ins that repeat are counted in the row of the first.
    void logEvent(const Event& event);
    std::vector<StoredEvent> readEvents(const EventQuery& query);

    /// The board's clock: seconds since 1970, UTC, ahead of the machine's clock by the offset.
    std::int64_t getTime() const { return toBoardTime(std::chrono::system_clock::now()); }
    /// The time on that clock, at least 0.
    std::int64_t toBoardTime(StoredSession::Time time) const;
    static std::int64_t getMachineTime();
    std::int64_t getTimeOffset() const { return m_timeOffset; }
    void setTimeOffset(std::int64_t seconds) { m_timeOffset = seconds; }

private:
    explicit BoardState(Database database) : m_database(std::move(database)) {}

    static Database openState(const std::string& path);
    static void makeState(const std::string& path);
    void checkFile();
    void checkContents();
    void makeNew();
    void replaceUser(const User& user);
    void insertEvent(const Event& event, std::int64_t time);
    bool countRepetition(const Event& event, std::int64_t time);
    void trimEvents(int code);
    void replaceItem(std::uint32_t id, const std::string& content);
    void deleteSession(const std::string& id);
    void replaceDevice(const std::string& digest, const std::string& user);
    void deleteDevices(const std::string& user, const std::string& keptSession);
    void deleteSessions(const std::string& user, const std::string& keptSession);

    Database m_database;
    std::int64_t m_timeOffset = 0;
};

}  // namespace ORVLib::Board
