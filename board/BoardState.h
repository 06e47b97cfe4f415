#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Database.h"
#include "Telegram.h"

namespace ORVLib::Board {

struct User {
    std::string name;
    std::string passwordHash;
    Authority authority;
    unsigned char language = 0;
    std::uint32_t refreshInterval = 0;  ///< seconds, 0 for none
};

/// A session as it is kept for the daemon's next start.
struct StoredSession {
    std::string id;
    std::string user;
    std::chrono::system_clock::time_point lastUse;
};

/// A line of the event log.
struct Event {
    std::string user;
    std::string text;
};

/// Everything the board keeps: users, information items, sessions and the event log.
///
/// An operation that changes something and the event that tells of it are stored together, and
/// are there after a crash once the operation has returned. Failures are DatabaseErrors.
class BoardState {
public:
    /// Opens the file, or makes one with the sample users and settings. Throws
    /// std::runtime_error, with a line for the administrator, for a file that cannot be used;
    /// such a file is left as it is.
    explicit BoardState(const std::string& path);

    std::optional<User> findUser(const std::string& name);
    void setLanguage(const std::string& user, unsigned char language, const Event& event);
    void setRefreshInterval(const std::string& user, std::uint32_t seconds, const Event& event);
    /// Ends all of the user's sessions but `keptSession` too.
    void setPasswordHash(const std::string& user, const std::string& hash,
                         const std::string& keptSession, const Event& event);

    std::optional<std::string> readItem(std::uint32_t id);
    void writeItem(std::uint32_t id, const std::string& content, const Event& event);

    std::vector<StoredSession> readSessions();
    void addSession(const StoredSession& session, const Event& event);
    void removeSession(const std::string& id, const Event& event);
    /// Stores last uses and forgets sessions, all at once.
    void updateSessions(const std::vector<StoredSession>& used,
                        const std::vector<std::string>& ended);

    void logEvent(const Event& event);
    /// The newest events, a line each with time, user and text, newest first.
    std::string readEvents();

private:
    void checkFile();
    void makeNew();
    void insertUser(const User& user);
    void insertEvent(const Event& event);
    void replaceItem(std::uint32_t id, const std::string& content);
    void deleteSession(const std::string& id);

    Database m_database;
};

}  // namespace ORVLib::Board
