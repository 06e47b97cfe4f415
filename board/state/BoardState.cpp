#include "state/BoardState.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "state/Password.h"
#include "state/SampleBoard.h"
#include "wire/Protocol.h"
#include "wire/Records.h"

namespace ORVLib::Board {

namespace {

constexpr int APPLICATION_ID = 0x4f525642;
constexpr int SCHEMA_VERSION = 2;
constexpr int KEPT_EVENTS = 2000;  // of each source

const char* const DRAFT_SUFFIX = ".new";

constexpr const char* SCHEMA = R"(
    CREATE TABLE users (
        name TEXT PRIMARY KEY,
        password TEXT NOT NULL,
        roles INTEGER NOT NULL,
        partitions INTEGER NOT NULL,
        language INTEGER NOT NULL,
        refresh_interval INTEGER NOT NULL,
        event_filter BLOB NOT NULL) STRICT;
    CREATE TABLE items (
        id INTEGER PRIMARY KEY,
        content BLOB NOT NULL) STRICT;
    CREATE TABLE sessions (
        id TEXT PRIMARY KEY,
        user TEXT NOT NULL REFERENCES users (name),
        address TEXT NOT NULL,
        login_time INTEGER NOT NULL,
        last_use INTEGER NOT NULL) STRICT;
    CREATE TABLE events (
        number INTEGER PRIMARY KEY AUTOINCREMENT,
        time INTEGER NOT NULL,
        severity INTEGER NOT NULL,
        code INTEGER NOT NULL,
        user TEXT NOT NULL,
        detail TEXT NOT NULL) STRICT;
    PRAGMA application_id = 0x4f525642;
    PRAGMA user_version = 2;
)";

std::int64_t toSeconds(std::chrono::system_clock::time_point time) {
    return std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count();
}

std::chrono::system_clock::time_point toTime(std::int64_t seconds) {
    return std::chrono::system_clock::time_point(std::chrono::seconds(seconds));
}

// Whoever answers with a text ends it with a NUL, or its line.
std::string readText(const Query& query, int column) {
    std::string text = query.getBytes(column);
    if (!isPrintable(text)) {
        throw DatabaseError("a text is damaged", SQLITE_CORRUPT);
    }
    return text;
}

User readUser(const Query& query) {
    return User{readText(query, 0),
                readText(query, 1),
                Authority{static_cast<std::uint32_t>(query.getNumber(2)),
                          static_cast<std::uint32_t>(query.getNumber(3))},
                static_cast<unsigned char>(query.getNumber(4)),
                static_cast<std::uint32_t>(query.getNumber(5)),
                query.getBytes(6)};
}

// What the tables are, by their names.
std::string readSchema(Database& database) {
    std::string schema;
    Query query = database.query(
        "SELECT sql FROM sqlite_schema WHERE name NOT LIKE 'sqlite%'"
        " ORDER BY name");
    while (query.step()) {
        schema += query.getBytes(0) + ';';
    }
    return schema;
}

void requirePrivate(const std::string& path) {
    if (::chmod(path.c_str(), S_IRUSR | S_IWUSR) != 0) {
        throw DatabaseError("the file belongs to somebody else", SQLITE_PERM);
    }
}

bool exists(const std::string& path) {
    struct stat file {};
    return ::stat(path.c_str(), &file) == 0 || errno != ENOENT;
}

// What an administrator can do about it.
std::string explain(const DatabaseError& error) {
    switch (error.getCode()) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return "is in use by another program; stop that first";
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return "is damaged or not a database; restore it or choose another --state file";
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
            return std::string("cannot be opened for writing (") + error.what() +
                   "); check the rights of the file and its folder";
        case SQLITE_EMPTY:
            return "is empty; restore it, or remove it to begin with the sample board";
        case SQLITE_MISMATCH:
            return "belongs to another program or version; move it away or choose another --state"
                   " file";
        default:
            return std::string("cannot be used: ") + error.what();
    }
}

}  // namespace

BoardState::BoardState(const std::string& path) try : m_database(openState(path)) {
    checkFile();
    checkContents();
    requirePrivate(path);
    m_database.accept();
    // Write-ahead: one flush to the disk for each change. FULL: done before the change returns.
    m_database.execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;");
} catch (const DatabaseError& error) {
    throw std::runtime_error(path + " " + explain(error));
}

Database BoardState::openState(const std::string& path) {
    if (!exists(path)) {
        makeState(path);
    }
    Database database(path);
    struct stat file {};
    if (::stat(path.c_str(), &file) == 0 && file.st_size == 0) {
        throw DatabaseError("empty", SQLITE_EMPTY);
    }
    return database;
}

// Under another name, until it is whole: a daemon that ends meanwhile leaves a draft to go on with.
// Of several daemons one has the draft, and is the one that gives it its name.
void BoardState::makeState(const std::string& path) {
    const std::string draft = path + DRAFT_SUFFIX;
    BoardState state{Database(draft)};
    state.makeNew();
    if (!exists(path)) {
        // What SQLite would take for the latest changes, of a state that somebody removed.
        ::unlink((path + "-journal").c_str());
        ::unlink((path + "-wal").c_str());
        if (::link(draft.c_str(), path.c_str()) != 0) {
            throw std::system_error(errno, std::generic_category(), "cannot make " + path);
        }
    }
    ::unlink(draft.c_str());
}

void BoardState::checkFile() {
    Query application = m_database.query("PRAGMA application_id");
    application.step();
    Query version = m_database.query("PRAGMA user_version");
    version.step();
    if (application.getNumber(0) != APPLICATION_ID || version.getNumber(0) != SCHEMA_VERSION) {
        throw DatabaseError("of another program or version", SQLITE_MISMATCH);
    }
    Database fresh(":memory:");
    fresh.execute(SCHEMA);
    if (readSchema(m_database) != readSchema(fresh)) {
        throw DatabaseError("tables are missing or changed", SQLITE_CORRUPT);
    }
}

void BoardState::checkContents() {
    Query check = m_database.query("PRAGMA integrity_check(1)");
    if (!check.step() || check.getBytes(0) != "ok" ||
        m_database.query("PRAGMA foreign_key_check").step()) {
        throw DatabaseError("damaged", SQLITE_CORRUPT);
    }
    readUsers();  // damaged texts show as they are read
    readSessions();
}

void BoardState::makeNew() {
    Transaction transaction(m_database);
    if (m_database.query("SELECT 1 FROM sqlite_schema").step()) {
        return;
    }
    m_database.execute(SCHEMA);
    for (const SampleUser& sample : SAMPLE_USERS) {
        replaceUser({sample.name, hashPassword(sample.password),
                     Authority{sample.roles, sample.partitions}, sample.language,
                     sample.refreshInterval, ""});
    }
    for (const auto& [id, content] : getSampleItems()) {
        replaceItem(id, content);
    }
    for (const SampleEvent& sample : SAMPLE_EVENTS) {
        insertEvent({sample.code, sample.user, sample.detail},
                    getTime() - sample.minutesAgo * std::int64_t{60});
    }
    transaction.commit();
}

void BoardState::replaceUser(const User& user) {
    m_database
        .query(
            "INSERT INTO users VALUES (?, ?, ?, ?, ?, ?, ?) ON CONFLICT (name) DO UPDATE SET"
            " password = excluded.password, roles = excluded.roles,"
            " partitions = excluded.partitions, language = excluded.language,"
            " refresh_interval = excluded.refresh_interval, event_filter = excluded.event_filter")
        .bind(user.name)
        .bind(user.passwordHash)
        .bind(user.authority.roles)
        .bind(user.authority.partitions)
        .bind(user.language)
        .bind(user.refreshInterval)
        .bindBlob(user.eventFilter)
        .run();
}

std::optional<User> BoardState::findUser(const std::string& name) {
    Query query = m_database.query(
        "SELECT name, password, roles, partitions, language, refresh_interval, event_filter"
        " FROM users WHERE name = ?");
    return query.bind(name).step() ? std::optional<User>(readUser(query)) : std::nullopt;
}

std::vector<User> BoardState::readUsers() {
    std::vector<User> users;
    Query query = m_database.query(
        "SELECT name, password, roles, partitions, language, refresh_interval, event_filter"
        " FROM users ORDER BY name");
    while (query.step()) {
        users.push_back(readUser(query));
    }
    return users;
}

void BoardState::storeUser(const User& user, const Event& event) {
    Transaction transaction(m_database);
    replaceUser(user);
    insertEvent(event, getTime());
    transaction.commit();
}

void BoardState::resetUser(const User& user, const std::string& keptSession, const Event& event) {
    Transaction transaction(m_database);
    replaceUser(user);
    deleteSessions(user.name, keptSession);
    insertEvent(event, getTime());
    transaction.commit();
}

void BoardState::removeUser(const std::string& name, const Event& event) {
    Transaction transaction(m_database);
    deleteSessions(name, "");
    m_database.query("DELETE FROM users WHERE name = ?").bind(name).run();
    insertEvent(event, getTime());
    transaction.commit();
}

std::optional<std::string> BoardState::readItem(std::uint32_t id) {
    Query query = m_database.query("SELECT content FROM items WHERE id = ?");
    if (!query.bind(id).step()) {
        return std::nullopt;
    }
    return query.getBytes(0);
}

void BoardState::writeItem(std::uint32_t id, const std::string& content, const Event& event) {
    writeItems({{id, content}}, {event});
}

void BoardState::writeItems(const StoredItems& contents, const std::vector<Event>& events) {
    Transaction transaction(m_database);
    for (const auto& [id, content] : contents) {
        replaceItem(id, content);
    }
    for (const Event& event : events) {
        insertEvent(event, getTime());
    }
    transaction.commit();
}

void BoardState::replaceItem(std::uint32_t id, const std::string& content) {
    m_database.query("REPLACE INTO items VALUES (?, ?)").bind(id).bindBlob(content).run();
}

std::vector<StoredSession> BoardState::readSessions() {
    std::vector<StoredSession> sessions;
    Query query = m_database.query("SELECT id, user, address, login_time, last_use FROM sessions");
    const std::int64_t now = toSeconds(std::chrono::system_clock::now());
    while (query.step()) {
        // A clock that was set back since must not make a session last longer.
        const std::int64_t lastUse = std::clamp<std::int64_t>(query.getNumber(4), 0, now);
        const std::int64_t loginTime = std::clamp<std::int64_t>(query.getNumber(3), 0, lastUse);
        sessions.push_back({readText(query, 0), readText(query, 1), readText(query, 2),
                            toTime(loginTime), toTime(lastUse)});
    }
    return sessions;
}

void BoardState::addSession(const StoredSession& session, const std::vector<std::string>& ended,
                            const Event& event) {
    Transaction transaction(m_database);
    for (const std::string& id : ended) {
        deleteSession(id);
    }
    m_database.query("INSERT INTO sessions VALUES (?, ?, ?, ?, ?)")
        .bind(session.id)
        .bind(session.user)
        .bind(session.address)
        .bind(toSeconds(session.loginTime))
        .bind(toSeconds(session.lastUse))
        .run();
    insertEvent(event, getTime());
    transaction.commit();
}

void BoardState::removeSession(const std::string& id, const Event& event) {
    Transaction transaction(m_database);
    deleteSession(id);
    insertEvent(event, getTime());
    transaction.commit();
}

void BoardState::deleteSession(const std::string& id) {
    m_database.query("DELETE FROM sessions WHERE id = ?").bind(id).run();
}

void BoardState::deleteSessions(const std::string& user, const std::string& keptSession) {
    m_database.query("DELETE FROM sessions WHERE user = ? AND id <> ?")
        .bind(user)
        .bind(keptSession)
        .run();
}

void BoardState::updateSessions(const std::vector<StoredSession>& used,
                                const std::vector<std::string>& ended) {
    Transaction transaction(m_database);
    for (const StoredSession& session : used) {
        m_database.query("UPDATE sessions SET last_use = ? WHERE id = ?")
            .bind(toSeconds(session.lastUse))
            .bind(session.id)
            .run();
    }
    for (const std::string& id : ended) {
        deleteSession(id);
    }
    transaction.commit();
}

void BoardState::logEvent(const Event& event) {
    Transaction transaction(m_database);
    insertEvent(event, getTime());
    transaction.commit();
}

void BoardState::insertEvent(const Event& event, std::int64_t time) {
    m_database
        .query("INSERT INTO events (time, severity, code, user, detail) VALUES (?, ?, ?, ?, ?)")
        .bind(time)
        .bind(static_cast<int>(getSeverity(event.code)))
        .bind(static_cast<int>(event.code))
        .bind(event.user)
        .bind(event.detail)
        .run();
    const int source = getSource(event.code);
    m_database
        .query(
            "DELETE FROM events WHERE code / 100 = ? AND number <= (SELECT number FROM events"
            " WHERE code / 100 = ? ORDER BY number DESC LIMIT 1 OFFSET ?)")
        .bind(source)
        .bind(source)
        .bind(KEPT_EVENTS)
        .run();
}

std::vector<StoredEvent> BoardState::readEvents(const EventQuery& wanted) {
    std::vector<StoredEvent> events;
    Query query = m_database.query(
        "SELECT number, time, code, user, detail FROM events"
        " WHERE number < ? AND severity >= ? AND ? IN (0, code / 100) AND time >= ? AND time < ?"
        " ORDER BY number DESC LIMIT ?");
    query.bind(wanted.before)
        .bind(static_cast<int>(wanted.severity))
        .bind(wanted.source)
        .bind(wanted.from)
        .bind(wanted.until)
        .bind(wanted.count);
    while (query.step()) {
        events.push_back({query.getNumber(0), query.getNumber(1),
                          static_cast<EventCode>(query.getNumber(2)), readText(query, 3),
                          readText(query, 4)});
    }
    return events;
}

std::int64_t BoardState::getMachineTime() {
    return toSeconds(std::chrono::system_clock::now());
}

// What happened before the clock was set back may lie before its beginning.
std::int64_t BoardState::toBoardTime(StoredSession::Time time) const {
    return std::max<std::int64_t>(toSeconds(time) + m_timeOffset, 0);
}

}  // namespace ORVLib::Board
