#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

namespace ORVLib::Board {

/// What SQLite reported, with its result code.
class DatabaseError : public std::runtime_error {
public:
    DatabaseError(const std::string& text, int code) : std::runtime_error(text), m_code(code) {}

    int getCode() const { return m_code; }

private:
    int m_code;
};

/// One use of a prepared statement. Values are bound from left to right.
class Query {
public:
    explicit Query(sqlite3_stmt* statement) : m_statement(statement) {}
    ~Query();

    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    Query& bind(std::int64_t number);
    Query& bind(const std::string& text);
    Query& bindBlob(const std::string& bytes);

    /// Goes to the next row; false when there is none.
    bool step();
    void run() { step(); }

    std::int64_t getNumber(int column) const;
    std::string getBytes(int column) const;

private:
    void check(int code) const;

    sqlite3_stmt* m_statement;
    int m_bound = 0;
};

/// One SQLite database, which no other process can use at the same time. Whatever was committed
/// is there after a crash. Every failure is a DatabaseError.
class Database {
public:
    /// Opens the file for writing, or makes it, readable for its owner only. Closing leaves it and
    /// its write-ahead log as they are, unless something was written.
    explicit Database(const std::string& path);

    /// Lets closing put the write-ahead log into the file: it has been found to be good.
    void accept();

    void execute(const char* sql);

    /// REQUIRES: `sql` is a literal, and no other Query of the same one is alive.
    Query query(const char* sql);

private:
    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    };
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    [[noreturn]] void fail() const;

    std::unique_ptr<sqlite3, Close> m_handle;
    std::map<const char*, std::unique_ptr<sqlite3_stmt, Finalize>> m_statements;
};

/// Everything or nothing: undone unless committed.
class Transaction {
public:
    explicit Transaction(Database& database);
    ~Transaction();

    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    Database& m_database;
    bool m_open = true;
};

}  // namespace ORVLib::Board
