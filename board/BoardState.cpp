#include "BoardState.h"

#include <algorithm>

#include "Password.h"
#include "Protocol.h"
#include "orv/GeneralPurposePacket.h"
#include "orv/PartitionOperatorInfo.h"

namespace ORVLib::Board {

namespace {

constexpr int APPLICATION_ID = 0x4f525642;
constexpr int SCHEMA_VERSION = 1;
constexpr int KEPT_EVENTS = 10000;
constexpr int SHOWN_EVENTS = 200;

constexpr const char* SCHEMA = R"(
    CREATE TABLE users (
        name TEXT PRIMARY KEY,
        password TEXT NOT NULL,
        roles INTEGER NOT NULL,
        partitions INTEGER NOT NULL,
        language INTEGER NOT NULL,
        refresh_interval INTEGER NOT NULL) STRICT;
    CREATE TABLE items (
        id INTEGER PRIMARY KEY,
        content BLOB NOT NULL) STRICT;
    CREATE TABLE sessions (
        id TEXT PRIMARY KEY,
        user TEXT NOT NULL REFERENCES users (name),
        last_use INTEGER NOT NULL) STRICT;
    CREATE TABLE events (
        number INTEGER PRIMARY KEY AUTOINCREMENT,
        time INTEGER NOT NULL,
        user TEXT NOT NULL,
        text TEXT NOT NULL) STRICT;
    PRAGMA application_id = 0x4f525642;
    PRAGMA user_version = 1;
)";

struct SampleUser {
    const char* name;
    const char* password;
    std::uint32_t roles;
    std::uint32_t partitions;
    unsigned char language;
    std::uint32_t refreshInterval;
};

constexpr std::uint32_t PARTITIONS_0_AND_3 = 1U << 0 | 1U << 3;

// clang-format off
constexpr SampleUser SAMPLE_USERS[] = {
    // name      password         role                        partitions         language refresh
    {"admin",    "admin-pass",    ROLE_SYSTEM_ADMINISTRATOR,  0,                  1,      60},
    {"operator", "operator-pass", ROLE_OPERATOR,              0,                  0,      30},
    {"staff",    "staff-pass",    ROLE_TECHNICAL_STAFF,       0,                  1,       0},
    {"guest",    "guest-pass",    ROLE_GUEST,                 0,                  1,       0},
    {"part",     "part-pass",     0,                          PARTITIONS_0_AND_3, 1,       0},
};
// clang-format on

constexpr std::uint32_t DEFAULT_HTTPS_PORT = 443;
constexpr std::uint32_t ENGLISH = 1;
constexpr std::size_t MAINTENANCE_MODE_SIZE = 34;

std::string noMaintenancePermission() {
    ORVUi::GeneralPurposePacket packet;
    packet.addComponent(std::make_unique<ORVUi::PrimitiveTypeWrapper<long>>());
    std::string bytes(packet.getSerializedSize(), '\0');
    packet.getSerialized(reinterpret_cast<unsigned char*>(bytes.data()),
                         static_cast<unsigned int>(bytes.size()));
    return bytes;
}

std::int64_t toSeconds(std::chrono::system_clock::time_point time) {
    return std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count();
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
            return "cannot be opened for writing; check the rights of the file and its folder";
        default:
            return std::string("cannot be used: ") + error.what();
    }
}

}  // namespace

BoardState::BoardState(const std::string& path) try : m_database(path) {
    checkFile();
    // Write-ahead: one flush to the disk for each change. FULL: done before the change returns.
    m_database.execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;");
    Transaction transaction(m_database);
    if (!m_database.query("SELECT 1 FROM sqlite_schema").step()) {
        makeNew();
    }
    transaction.commit();
} catch (const DatabaseError& error) {
    throw std::runtime_error(path + " " + explain(error));
}

void BoardState::checkFile() {
    Query schema = m_database.query("SELECT count(*) FROM sqlite_schema");
    schema.step();
    Query application = m_database.query("PRAGMA application_id");
    application.step();
    Query version = m_database.query("PRAGMA user_version");
    version.step();
    const bool isNew = schema.getNumber(0) == 0 && application.getNumber(0) == 0;
    if (!isNew &&
        (application.getNumber(0) != APPLICATION_ID || version.getNumber(0) != SCHEMA_VERSION)) {
        throw DatabaseError("it belongs to another program or version", SQLITE_MISMATCH);
    }
    Query check = m_database.query("PRAGMA quick_check(1)");
    if (!check.step() || check.getBytes(0) != "ok") {
        throw DatabaseError("damaged", SQLITE_CORRUPT);
    }
}

void BoardState::makeNew() {
    m_database.execute(SCHEMA);
    for (const SampleUser& sample : SAMPLE_USERS) {
        insertUser({sample.name, hashPassword(sample.password),
                    Authority{sample.roles, sample.partitions}, sample.language,
                    sample.refreshInterval});
    }
    replaceItem(ITEM_DEFAULT_LANGUAGE, formatNumber(ENGLISH));
    replaceItem(ITEM_HTTPS_PORT, formatNumber(DEFAULT_HTTPS_PORT));
    replaceItem(ITEM_MAINTENANCE_MODE, std::string(MAINTENANCE_MODE_SIZE, '\0'));
    replaceItem(ITEM_MAINTENANCE_PERMISSION, noMaintenancePermission());
}

void BoardState::insertUser(const User& user) {
    m_database.query("INSERT INTO users VALUES (?, ?, ?, ?, ?, ?)")
        .bind(user.name)
        .bind(user.passwordHash)
        .bind(user.authority.roles)
        .bind(user.authority.partitions)
        .bind(user.language)
        .bind(user.refreshInterval)
        .run();
}

std::optional<User> BoardState::findUser(const std::string& name) {
    Query query = m_database.query(
        "SELECT password, roles, partitions, language, refresh_interval FROM users"
        " WHERE name = ?");
    if (!query.bind(name).step()) {
        return std::nullopt;
    }
    return User{name, query.getBytes(0),
                Authority{static_cast<std::uint32_t>(query.getNumber(1)),
                          static_cast<std::uint32_t>(query.getNumber(2))},
                static_cast<unsigned char>(query.getNumber(3)),
                static_cast<std::uint32_t>(query.getNumber(4))};
}

void BoardState::setLanguage(const std::string& user, unsigned char language, const Event& event) {
    Transaction transaction(m_database);
    m_database.query("UPDATE users SET language = ? WHERE name = ?")
        .bind(language)
        .bind(user)
        .run();
    insertEvent(event);
    transaction.commit();
}

void BoardState::setRefreshInterval(const std::string& user, std::uint32_t seconds,
                                    const Event& event) {
    Transaction transaction(m_database);
    m_database.query("UPDATE users SET refresh_interval = ? WHERE name = ?")
        .bind(seconds)
        .bind(user)
        .run();
    insertEvent(event);
    transaction.commit();
}

void BoardState::setPasswordHash(const std::string& user, const std::string& hash,
                                 const std::string& keptSession, const Event& event) {
    Transaction transaction(m_database);
    m_database.query("UPDATE users SET password = ? WHERE name = ?").bind(hash).bind(user).run();
    m_database.query("DELETE FROM sessions WHERE user = ? AND id <> ?")
        .bind(user)
        .bind(keptSession)
        .run();
    insertEvent(event);
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
    Transaction transaction(m_database);
    replaceItem(id, content);
    insertEvent(event);
    transaction.commit();
}

void BoardState::replaceItem(std::uint32_t id, const std::string& content) {
    m_database.query("REPLACE INTO items VALUES (?, ?)").bind(id).bindBlob(content).run();
}

std::vector<StoredSession> BoardState::readSessions() {
    std::vector<StoredSession> sessions;
    Query query = m_database.query("SELECT id, user, last_use FROM sessions");
    const std::int64_t now = toSeconds(std::chrono::system_clock::now());
    while (query.step()) {
        // A clock that was set back since must not make a session last longer.
        const std::chrono::seconds lastUse(std::clamp<std::int64_t>(query.getNumber(2), 0, now));
        sessions.push_back(
            {query.getBytes(0), query.getBytes(1), std::chrono::system_clock::time_point(lastUse)});
    }
    return sessions;
}

void BoardState::addSession(const StoredSession& session, const Event& event) {
    Transaction transaction(m_database);
    m_database.query("INSERT INTO sessions VALUES (?, ?, ?)")
        .bind(session.id)
        .bind(session.user)
        .bind(toSeconds(session.lastUse))
        .run();
    insertEvent(event);
    transaction.commit();
}

void BoardState::removeSession(const std::string& id, const Event& event) {
    Transaction transaction(m_database);
    deleteSession(id);
    insertEvent(event);
    transaction.commit();
}

void BoardState::deleteSession(const std::string& id) {
    m_database.query("DELETE FROM sessions WHERE id = ?").bind(id).run();
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
    insertEvent(event);
    transaction.commit();
}

void BoardState::insertEvent(const Event& event) {
    m_database.query("INSERT INTO events (time, user, text) VALUES (unixepoch(), ?, ?)")
        .bind(event.user)
        .bind(event.text)
        .run();
    m_database.query("DELETE FROM events WHERE number <= last_insert_rowid() - ?")
        .bind(KEPT_EVENTS)
        .run();
}

std::string BoardState::readEvents() {
    std::string lines;
    Query query = m_database.query(
        "SELECT datetime(time, 'unixepoch') || ' ' || user || ' ' || text FROM events"
        " ORDER BY number DESC LIMIT ?");
    query.bind(SHOWN_EVENTS);
    while (query.step()) {
        lines += query.getBytes(0) + '\n';
    }
    return lines;
}

}  // namespace ORVLib::Board
