#include "platform/portable/Database.h"

#include "platform/ErrorCode.h"
#include "platform/portable/BusyWait.h"

#include <tuple>

#include <sqlite3.h>

namespace nesk::platform::portable {

namespace {

// SQLite calls this while another program has locked the database, and tries again unless the result is 0.
int OnBusy(void* /*context*/, int attempt) {
    return WaitForOtherProgram(attempt) ? 1 : 0;
}

// The URI that opens a file as immutable, that is, without locks and change detection.
std::string UnchangingUri(const std::filesystem::path& file) {
    std::string uri = "file:";
    for (const char c : file.string()) {
        if (c == '%')
            uri += "%25";
        else if (c == '?')
            uri += "%3f";
        else if (c == '#')
            uri += "%23";
        else
            uri += c;
    }
    return uri + "?immutable=1";
}

} // namespace

ErrorCode ErrorFromSqlite(int code) {
    switch (code & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE: return ErrorCode::Success;
    case SQLITE_BUSY:
    case SQLITE_PROTOCOL:
    case SQLITE_LOCKED: return ErrorCode::Busy;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_CANTOPEN: return ErrorCode::AccessDenied;
    case SQLITE_NOTADB: return ErrorCode::BadDatabase;
    // A statement that does not match the tables: the database was made by another program.
    case SQLITE_ERROR: return ErrorCode::BadDatabase;
    case SQLITE_CORRUPT: return ErrorCode::RegistryCorrupt;
    // The only constraint that a statement can violate is the foreign key of a value.
    case SQLITE_CONSTRAINT: return ErrorCode::KeyDeleted;
    case SQLITE_FULL: return ErrorCode::DiskFull;
    case SQLITE_NOMEM: return ErrorCode::OutOfMemory;
    default: return ErrorCode::RegistryIoFailed;
    }
}

Database::~Database() {
    sqlite3_close_v2(m_handle);
}

ErrorCode Database::Open(const std::filesystem::path& file, bool create) {
    std::error_code error;
    if (!create && !std::filesystem::exists(file, error)) return ErrorCode::FileNotFound;
    const int code = Connect(file.c_str(), SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0));
    if (code != SQLITE_OK || !IsReadOnly()) return ErrorFromSqlite(code);

    // A database with a write-ahead log needs additional files even for reading. Where they cannot be
    // created, no program can write, so the database can be opened as an immutable file.
    const int read = sqlite3_exec(m_handle, "PRAGMA schema_version", nullptr, nullptr, nullptr);
    const bool refused = (read & 0xFF) == SQLITE_CANTOPEN || (read & 0xFF) == SQLITE_READONLY;
    if (!refused || std::filesystem::exists(file.string() + "-wal", error)) return ErrorFromSqlite(read);
    return ErrorFromSqlite(Connect(UnchangingUri(file).c_str(), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI));
}

int Database::Connect(const char* name, int flags) {
    sqlite3_close_v2(m_handle);
    m_handle = nullptr;
    const int code = sqlite3_open_v2(name, &m_handle, flags, nullptr);
    if (code == SQLITE_OK) sqlite3_busy_handler(m_handle, OnBusy, nullptr);
    return code;
}

bool Database::IsReadOnly() const {
    return sqlite3_db_readonly(m_handle, "main") == 1;
}

bool Database::InTransaction() const {
    return sqlite3_get_autocommit(m_handle) == 0;
}

ErrorCode Database::Execute(const char* sql) {
    return ErrorFromSqlite(sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr));
}

Statement::Statement(Database& database, const char* sql) {
    m_code = sqlite3_prepare_v3(database.Handle(), sql, -1, SQLITE_PREPARE_PERSISTENT, &m_statement, nullptr);
}

Statement::~Statement() {
    sqlite3_finalize(m_statement);
}

Statement& Statement::Start() {
    if (m_statement == nullptr) return *this;
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
    m_parameter = 0;
    m_code = SQLITE_OK;
    return *this;
}

int Statement::Check(int code) {
    if (m_code == SQLITE_OK) m_code = code;
    return m_code;
}

Statement& Statement::Bind(std::int64_t value) {
    Check(sqlite3_bind_int64(m_statement, ++m_parameter, value));
    return *this;
}

Statement& Statement::Bind(std::string_view text) {
    Check(sqlite3_bind_text64(m_statement, ++m_parameter, text.data(), text.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
    return *this;
}

Statement& Statement::BindBlob(std::string_view bytes) {
    // SQLite would store a null pointer as NULL and not as an empty value.
    const char* data = bytes.empty() ? "" : bytes.data();
    Check(sqlite3_bind_blob64(m_statement, ++m_parameter, data, bytes.size(), SQLITE_STATIC));
    return *this;
}

ErrorCode Statement::Step(bool& row) {
    row = false;
    if (m_code != SQLITE_OK || m_statement == nullptr) return ErrorFromSqlite(m_code);
    const int code = sqlite3_step(m_statement);
    row = code == SQLITE_ROW;
    // A statement that is not reset would block writes of other programs.
    if (!row) sqlite3_reset(m_statement);
    return ErrorFromSqlite(code);
}

ErrorCode Statement::Run() {
    bool row = false;
    const ErrorCode result = Step(row);
    if (row) sqlite3_reset(m_statement);
    return result;
}

std::int64_t Statement::Number(int column) const {
    return sqlite3_column_int64(m_statement, column);
}

std::string Statement::Bytes(int column) const {
    const void* data = sqlite3_column_blob(m_statement, column);
    const int size = sqlite3_column_bytes(m_statement, column);
    return data != nullptr ? std::string(static_cast<const char*>(data), static_cast<std::size_t>(size)) : "";
}

WriteTransaction::WriteTransaction(Database& database)
    : m_database(database)
    , m_inner(database.InTransaction())
    , m_result(database.Execute(m_inner ? "SAVEPOINT step" : "BEGIN IMMEDIATE"))
    , m_open(m_result == ErrorCode::Success) {}

WriteTransaction::~WriteTransaction() {
    // A rollback fails only if an error has rolled the transaction back already.
    if (m_open) std::ignore = m_database.Execute(m_inner ? "ROLLBACK TO step; RELEASE step" : "ROLLBACK");
}

ErrorCode WriteTransaction::Commit() {
    const ErrorCode result = m_database.Execute(m_inner ? "RELEASE step" : "COMMIT");
    if (result == ErrorCode::Success) m_open = false;
    return result;
}

} // namespace nesk::platform::portable
