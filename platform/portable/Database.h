#pragma once

#include "platform/ErrorCode.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace nesk::platform::portable {

/// The result code (ErrorCode.h) of an SQLite result code.
ErrorCode ErrorFromSqlite(int code);

/// A connection to a database file. Operations return result codes.
class Database {
public:
    Database() = default;
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Opens a file for reading and writing, or read-only when writing is not allowed.
    /// @param create  true creates a missing file; false returns FileNotFound for it
    ErrorCode Open(const std::filesystem::path& file, bool create);

    bool IsReadOnly() const;

    /// Runs statements that return no rows.
    ErrorCode Execute(const char* sql);

    /// True while a transaction is open.
    bool InTransaction() const;

    sqlite3* Handle() const { return m_handle; }

private:
    int Connect(const char* name, int flags);

    sqlite3* m_handle = nullptr;
};

/// A prepared statement; resets itself before each use.
class Statement {
public:
    /// A preparation error is reported by the first Step.
    Statement(Database& database, const char* sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Starts a new use: clears results and parameters.
    Statement& Start();
    Statement& Bind(std::int64_t value);
    /// The text must remain valid until the next Start.
    Statement& Bind(std::string_view text);
    Statement& BindBlob(std::string_view bytes);

    /// Moves to the next row: Success with `row` true, or with `row` false at the end.
    ErrorCode Step(bool& row);

    /// Runs a statement that returns no rows.
    ErrorCode Run();

    std::int64_t Number(int column) const;
    std::string Bytes(int column) const;

private:
    int Check(int code);

    sqlite3_stmt* m_statement = nullptr;
    int m_parameter = 0;
    int m_code = 0;
};

/// A write transaction; rolled back unless it is committed. Within another transaction it is a savepoint.
class WriteTransaction {
public:
    explicit WriteTransaction(Database& database);
    ~WriteTransaction();
    WriteTransaction(const WriteTransaction&) = delete;
    WriteTransaction& operator=(const WriteTransaction&) = delete;

    /// Success when the transaction has started.
    ErrorCode Result() const { return m_result; }
    ErrorCode Commit();

private:
    Database& m_database;
    bool m_inner;
    ErrorCode m_result;
    bool m_open;
};

} // namespace nesk::platform::portable
