#include "state/Database.h"

#include <sys/stat.h>

#include <system_error>

namespace ORVLib::Board {

Query::~Query() {
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

Query& Query::bind(std::int64_t number) {
    check(sqlite3_bind_int64(m_statement, ++m_bound, number));
    return *this;
}

Query& Query::bind(const std::string& text) {
    check(sqlite3_bind_text(m_statement, ++m_bound, text.data(), static_cast<int>(text.size()),
                            SQLITE_TRANSIENT));
    return *this;
}

Query& Query::bindBlob(const std::string& bytes) {
    check(sqlite3_bind_blob(m_statement, ++m_bound, bytes.data(), static_cast<int>(bytes.size()),
                            SQLITE_TRANSIENT));
    return *this;
}

bool Query::step() {
    const int code = sqlite3_step(m_statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE) {
        check(code);
    }
    return code == SQLITE_ROW;
}

std::int64_t Query::getNumber(int column) const {
    return sqlite3_column_int64(m_statement, column);
}

std::string Query::getBytes(int column) const {
    const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(m_statement, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column));
    return bytes != nullptr ? std::string(bytes, size) : std::string();
}

void Query::check(int code) const {
    if (code != SQLITE_OK) {
        sqlite3* const handle = sqlite3_db_handle(m_statement);
        throw DatabaseError(sqlite3_errmsg(handle), code & 0xff);
    }
}

// SQLite's text, and the system's for its own error.
static std::string describe(sqlite3* handle) {
    const int error = sqlite3_system_errno(handle);
    return sqlite3_errmsg(handle) +
           (error != 0 ? ": " + std::generic_category().message(error) : std::string());
}

Database::Database(const std::string& path) {
    const mode_t before = ::umask(S_IRWXG | S_IRWXO);
    sqlite3* handle = nullptr;
    const int code =
        sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    ::umask(before);
    m_handle.reset(handle);
    if (code != SQLITE_OK) {
        throw DatabaseError(handle != nullptr ? describe(handle) : "out of memory", code);
    }
    if (sqlite3_db_readonly(handle, "main") != 0) {
        throw DatabaseError("attempt to write a readonly database", SQLITE_READONLY);
    }
    sqlite3_db_config(handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    execute("PRAGMA locking_mode = EXCLUSIVE; PRAGMA foreign_keys = ON;");
}

void Database::accept() {
    sqlite3_db_config(m_handle.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
}

void Database::execute(const char* sql) {
    if (sqlite3_exec(m_handle.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        fail();
    }
}

Query Database::query(const char* sql) {
    auto& statement = m_statements[sql];
    if (!statement) {
        sqlite3_stmt* prepared = nullptr;
        if (sqlite3_prepare_v2(m_handle.get(), sql, -1, &prepared, nullptr) != SQLITE_OK) {
            fail();
        }
        statement.reset(prepared);
    }
    return Query(statement.get());
}

void Database::fail() const {
    throw DatabaseError(describe(m_handle.get()), sqlite3_errcode(m_handle.get()) & 0xff);
}

Transaction::Transaction(Database& database) : m_database(database) {
    m_database.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (!m_open) {
        return;
    }
    try {
        m_database.execute("ROLLBACK");
    } catch (const DatabaseError&) {
        // SQLite has rolled back by itself, as it does after some failures.
    }
}

void Transaction::commit() {
    m_database.execute("COMMIT");
    m_open = false;
}

}  // namespace ORVLib::Board
