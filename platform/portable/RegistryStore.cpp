#include "platform/portable/RegistryStore.h"

#include "platform/ErrorCode.h"
#include "platform/TextEncoding.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

namespace nesk::platform::portable {

namespace {

constexpr std::int64_t SchemaVersion = 1;
constexpr std::size_t LongestKeyName = 255;

// Subkeys are in the order of their upper-cased names, values in the order in which they were first written.
constexpr const char* Schema = R"(
CREATE TABLE keys(
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  parent INTEGER NOT NULL,
  name TEXT NOT NULL,
  folded TEXT NOT NULL,
  UNIQUE(parent, folded));
CREATE TABLE vals(
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  key INTEGER NOT NULL REFERENCES keys(id) ON DELETE CASCADE,
  name TEXT NOT NULL,
  folded TEXT NOT NULL,
  type INTEGER NOT NULL,
  data BLOB NOT NULL,
  UNIQUE(key, folded));
INSERT INTO keys(id, parent, name, folded)
  VALUES(0, -1, 'HKEY_LOCAL_MACHINE', 'HKEY_LOCAL_MACHINE');
PRAGMA user_version = 1;
)";

ErrorCode ReadNumber(Database& database, const char* sql, std::int64_t& number) {
    Statement statement(database, sql);
    bool row = false;
    const ErrorCode result = statement.Step(row);
    number = row ? statement.Number(0) : 0;
    return result;
}

ErrorCode ReadVersion(Database& database, std::int64_t& version) {
    return ReadNumber(database, "PRAGMA user_version", version);
}

// Creates the tables of a new store. Another program may be doing the same.
ErrorCode MakeTables(Database& database) {
    WriteTransaction transaction(database);
    if (transaction.Result() != ErrorCode::Success) return transaction.Result();
    std::int64_t version = 0;
    if (const ErrorCode result = ReadVersion(database, version); result != ErrorCode::Success) return result;
    if (version != 0) return version == SchemaVersion ? ErrorCode::Success : ErrorCode::BadDatabase;
    std::int64_t tables = 0;
    if (const ErrorCode result = ReadNumber(database, "SELECT count(*) FROM sqlite_master", tables);
        result != ErrorCode::Success)
        return result;
    // A database with tables but without our version was made by another program.
    if (tables != 0) return ErrorCode::BadDatabase;
    if (const ErrorCode result = database.Execute(Schema); result != ErrorCode::Success) return result;
    return transaction.Commit();
}

// Asks for a write-ahead log. A refusal may be reported as an error or as the mode that stays.
bool HasWriteAheadLog(Database& database) {
    Statement mode(database, "PRAGMA journal_mode = WAL");
    bool row = false;
    return mode.Step(row) == ErrorCode::Success && row && mode.Bytes(0) == "wal";
}

// Checks that the store is ours before it changes anything.
ErrorCode Prepare(Database& database) {
    std::int64_t version = 0;
    if (const ErrorCode result = ReadVersion(database, version); result != ErrorCode::Success) return result;
    if (version != 0 && version != SchemaVersion) return ErrorCode::BadDatabase;
    if (version == 0)
        if (const ErrorCode result = MakeTables(database); result != ErrorCode::Success) return result;
    // With a write-ahead log, committed data survives a kill at any moment, and readers do not wait for a
    // writer in another program or block it. NORMAL can then lose the last writes in a power failure, but
    // never damages the store. Where there can be no such log, for example in a store that may only be read,
    // SQLite's own settings stay, because without the log NORMAL would be a danger.
    if (HasWriteAheadLog(database)) std::ignore = database.Execute("PRAGMA synchronous = NORMAL");
    return database.Execute("PRAGMA foreign_keys = ON");
}

std::vector<std::string> Levels(const std::string& path) {
    std::vector<std::string> levels;
    for (std::size_t from = 0; from < path.size();) {
        const std::size_t end = std::min(path.find('\\', from), path.size());
        if (end > from) levels.push_back(path.substr(from, end - from));
        from = end + 1;
    }
    return levels;
}

std::size_t CharacterCount(const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !ContinuesCharacter(c); }));
}

} // namespace

ErrorCode RegistryStore::Open(const std::filesystem::path& file, bool create,
                              std::unique_ptr<RegistryStore>& store) {
    auto database = std::make_unique<Database>();
    if (const ErrorCode result = database->Open(file, create); result != ErrorCode::Success) return result;
    if (const ErrorCode result = Prepare(*database); result != ErrorCode::Success) return result;
    store.reset(new RegistryStore(std::move(database)));
    return ErrorCode::Success;
}

RegistryStore::RegistryStore(std::unique_ptr<Database> database)
    : m_owner(std::move(database))
    , m_database(*m_owner)
    , m_exists(m_database, "SELECT 1 FROM keys WHERE id = ?")
    , m_findChild(m_database, "SELECT id FROM keys WHERE parent = ? AND folded = ?")
    , m_addKey(m_database, "INSERT INTO keys(parent, name, folded) VALUES(?, ?, ?) RETURNING id")
    , m_hasChild(m_database, "SELECT 1 FROM keys WHERE parent = ? LIMIT 1")
    , m_deleteKey(m_database, "DELETE FROM keys WHERE id = ?")
    , m_subkeyAt(m_database, "SELECT name FROM keys WHERE parent = ? ORDER BY folded LIMIT 1 OFFSET ?")
    , m_readValue(m_database, "SELECT name, type, data FROM vals WHERE key = ? AND folded = ?")
    , m_valueAt(m_database, "SELECT name, type, data FROM vals WHERE key = ? ORDER BY id LIMIT 1 OFFSET ?")
    , m_writeValue(m_database,
                   "INSERT INTO vals(key, name, folded, type, data) VALUES(?, ?, ?, ?, ?) "
                   "ON CONFLICT(key, folded) DO UPDATE SET type = excluded.type, data = excluded.data")
    , m_deleteValue(m_database, "DELETE FROM vals WHERE key = ? AND folded = ? RETURNING 1") {}

ErrorCode RegistryStore::CheckKey(std::int64_t key) {
    if (key == Root) return ErrorCode::Success;
    bool row = false;
    const ErrorCode result = m_exists.Start().Bind(key).Step(row);
    m_exists.Start();
    return result == ErrorCode::Success && !row ? ErrorCode::KeyDeleted : result;
}

ErrorCode RegistryStore::FindChild(std::int64_t parent, const std::string& name, std::int64_t& key) {
    const std::string folded = ToUpper(name);
    bool row = false;
    const ErrorCode result = m_findChild.Start().Bind(parent).Bind(folded).Step(row);
    if (row) key = m_findChild.Number(0);
    m_findChild.Start();
    return result == ErrorCode::Success && !row ? ErrorCode::FileNotFound : result;
}

ErrorCode RegistryStore::FindKey(std::int64_t parent, const std::string& path, std::int64_t& key) {
    std::int64_t found = parent;
    for (const std::string& level : Levels(path))
        if (const ErrorCode result = FindChild(found, level, found); result != ErrorCode::Success)
            return result;
    key = found;
    return ErrorCode::Success;
}

ErrorCode RegistryStore::MakeKey(std::int64_t parent, const std::string& path, std::int64_t& key) {
    if (FindKey(parent, path, key) == ErrorCode::Success) return ErrorCode::Success;
    const std::vector<std::string> levels = Levels(path);
    for (const std::string& level : levels)
        if (CharacterCount(level) > LongestKeyName) return ErrorCode::InvalidParameter;
    if (const ErrorCode result = JoinGroup(); result != ErrorCode::Success) return result;
    WriteTransaction transaction(m_database);
    if (transaction.Result() != ErrorCode::Success) return transaction.Result();
    if (const ErrorCode result = CheckKey(parent); result != ErrorCode::Success) return result;
    std::int64_t made = parent;
    for (const std::string& level : levels) {
        ErrorCode result = FindChild(made, level, made);
        if (result == ErrorCode::FileNotFound) {
            const std::string folded = ToUpper(level);
            bool row = false;
            result = m_addKey.Start().Bind(made).Bind(level).Bind(folded).Step(row);
            if (row) made = m_addKey.Number(0);
            m_addKey.Start();
        }
        if (result != ErrorCode::Success) return result;
    }
    key = made;
    return transaction.Commit();
}

ErrorCode RegistryStore::JoinGroup() {
    if (m_groups == 0) return ErrorCode::Success;
    // An error may have ended the transaction. Later writes must not be stored without the earlier ones.
    if (m_begun) return m_database.InTransaction() ? ErrorCode::Success : ErrorCode::WriteFault;
    if (m_joined != ErrorCode::Success) return m_joined;
    m_joined = m_database.Execute("BEGIN IMMEDIATE");
    m_begun = m_joined == ErrorCode::Success;
    return m_joined;
}

ErrorCode RegistryStore::EndGroup() {
    if (--m_groups > 0 || !m_begun) return ErrorCode::Success;
    m_begun = false;
    // Some errors, such as a full disk, roll the transaction back by themselves and discard its earlier
    // writes.
    if (!m_database.InTransaction()) return ErrorCode::WriteFault;
    return Commit();
}

// A failed transaction must not stay open: later writes would become part of it.
ErrorCode RegistryStore::Commit() {
    const ErrorCode result = m_database.Execute("COMMIT");
    // The rollback fails if the error has rolled the transaction back already.
    if (result != ErrorCode::Success) std::ignore = m_database.Execute("ROLLBACK");
    return result;
}

// If the transaction cannot begin, the values are read one by one.
void RegistryStore::BeginReading() {
    if (!m_database.InTransaction()) m_isReading = m_database.Execute("BEGIN") == ErrorCode::Success;
}

void RegistryStore::EndReading() {
    // The transaction has only read, so nothing is lost if it does not commit.
    if (std::exchange(m_isReading, false)) std::ignore = Commit();
}

ErrorCode RegistryStore::DeleteKey(std::int64_t key) {
    if (const ErrorCode result = JoinGroup(); result != ErrorCode::Success) return result;
    WriteTransaction transaction(m_database);
    if (transaction.Result() != ErrorCode::Success) return transaction.Result();
    bool row = false;
    const ErrorCode result = m_hasChild.Start().Bind(key).Step(row);
    m_hasChild.Start();
    if (result != ErrorCode::Success) return result;
    if (row) return ErrorCode::AccessDenied;
    if (const ErrorCode deleted = m_deleteKey.Start().Bind(key).Run(); deleted != ErrorCode::Success)
        return deleted;
    return transaction.Commit();
}

ErrorCode RegistryStore::SubkeyName(std::int64_t key, std::uint32_t index, std::string& name) {
    bool row = false;
    const ErrorCode result = m_subkeyAt.Start().Bind(key).Bind(std::int64_t{index}).Step(row);
    if (row) name = m_subkeyAt.Bytes(0);
    m_subkeyAt.Start();
    return result == ErrorCode::Success && !row ? ErrorCode::NoMoreItems : result;
}

namespace {

ErrorCode ReadRow(Statement& statement, StoredValue& value, ErrorCode missing) {
    bool row = false;
    const ErrorCode result = statement.Step(row);
    if (row)
        value = {statement.Bytes(0), static_cast<std::uint32_t>(statement.Number(1)), statement.Bytes(2)};
    statement.Start();
    return result == ErrorCode::Success && !row ? missing : result;
}

} // namespace

ErrorCode RegistryStore::ReadValue(std::int64_t key, const std::string& name, StoredValue& value) {
    const std::string folded = ToUpper(name);
    m_readValue.Start().Bind(key).Bind(folded);
    return ReadRow(m_readValue, value, ErrorCode::FileNotFound);
}

ErrorCode RegistryStore::ReadValueAt(std::int64_t key, std::uint32_t index, StoredValue& value) {
    m_valueAt.Start().Bind(key).Bind(std::int64_t{index});
    return ReadRow(m_valueAt, value, ErrorCode::NoMoreItems);
}

ErrorCode RegistryStore::WriteValue(std::int64_t key, const std::string& name, std::uint32_t type,
                                    const std::string& data) {
    if (const ErrorCode result = JoinGroup(); result != ErrorCode::Success) return result;
    const std::string folded = ToUpper(name);
    return m_writeValue.Start()
        .Bind(key)
        .Bind(name)
        .Bind(folded)
        .Bind(std::int64_t{type})
        .BindBlob(data)
        .Run();
}

ErrorCode RegistryStore::DeleteValue(std::int64_t key, const std::string& name) {
    if (const ErrorCode result = JoinGroup(); result != ErrorCode::Success) return result;
    const std::string folded = ToUpper(name);
    bool row = false;
    ErrorCode result = m_deleteValue.Start().Bind(key).Bind(folded).Step(row);
    // The row is returned before the statement is complete; stepping to the end completes the deletion.
    bool more = row;
    while (more && result == ErrorCode::Success)
        result = m_deleteValue.Step(more);
    m_deleteValue.Start();
    return result == ErrorCode::Success && !row ? ErrorCode::FileNotFound : result;
}

} // namespace nesk::platform::portable
