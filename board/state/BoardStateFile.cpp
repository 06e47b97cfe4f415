// The file of the state: made, opened, and found to be sound.

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "state/BoardState.h"
#include "state/Password.h"
#include "state/SampleBoard.h"

namespace ORVLib::Board {

namespace {

constexpr int APPLICATION_ID = 0x4f525642;
constexpr int SCHEMA_VERSION = 3;

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
        last_use INTEGER NOT NULL,
        device TEXT NOT NULL) STRICT;
    CREATE TABLE devices (
        number INTEGER PRIMARY KEY,
        user TEXT NOT NULL REFERENCES users (name),
        digest TEXT NOT NULL,
        UNIQUE (user, digest)) STRICT;
    CREATE TABLE events (
        number INTEGER PRIMARY KEY AUTOINCREMENT,
        time INTEGER NOT NULL,
        severity INTEGER NOT NULL,
        code INTEGER NOT NULL,
        user TEXT NOT NULL,
        detail TEXT NOT NULL,
        count INTEGER NOT NULL DEFAULT 1,
        last_time INTEGER NOT NULL DEFAULT 0) STRICT;
    CREATE INDEX events_of_users ON events (code, user);
    PRAGMA application_id = 0x4f525642;
    PRAGMA user_version = 3;
)";

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

}  // namespace ORVLib::Board
