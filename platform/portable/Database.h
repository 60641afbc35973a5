#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace nesk::platform::portable {

/// The result code (ErrorCode.h) that belongs to a code of SQLite.
int ErrorFromSqlite(int code);

/// A connection to a database file. Operations answer with result codes.
class Database {
public:
    Database() = default;
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Opens a file for reading and writing, or only for reading where nothing else is allowed.
    /// @param create  creates a file that is missing; otherwise that is FileNotFound
    int Open(const std::filesystem::path& file, bool create);

    bool IsReadOnly() const;

    /// Runs statements that return nothing.
    int Execute(const char* sql);

    /// Whether a transaction is open.
    bool InTransaction() const;

    sqlite3* Handle() const { return m_handle; }

private:
    int Connect(const char* name, int flags);

    sqlite3* m_handle = nullptr;
};

/// A prepared statement; resets itself before each use.
class Statement {
public:
    /// A failure shows itself in the first Step.
    Statement(Database& database, const char* sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Starts a new use: drops results and parameters.
    Statement& Start();
    Statement& Bind(std::int64_t value);
    /// The text must live until the statement is started again.
    Statement& Bind(std::string_view text);
    Statement& BindBlob(std::string_view bytes);

    /// Moves to the next row: Success with `row` true, or with `row` false at the end.
    int Step(bool& row);

    /// Runs a statement that returns no rows.
    int Run();

    std::int64_t Number(int column) const;
    std::string Bytes(int column) const;

private:
    int Check(int code);

    sqlite3_stmt* m_statement = nullptr;
    int m_parameter = 0;
    int m_code = 0;
};

/// A transaction that writes; taken back unless it was committed. Within another one it is a step of that.
class WriteTransaction {
public:
    explicit WriteTransaction(Database& database);
    ~WriteTransaction();
    WriteTransaction(const WriteTransaction&) = delete;
    WriteTransaction& operator=(const WriteTransaction&) = delete;

    /// Success when the transaction could be started.
    int Result() const { return m_result; }
    int Commit();

private:
    Database& m_database;
    bool m_inner;
    int m_result;
    bool m_open;
};

} // namespace nesk::platform::portable
