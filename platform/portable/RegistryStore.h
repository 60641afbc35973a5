#pragma once

#include "platform/ErrorCode.h"
#include "platform/portable/Database.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace nesk::platform::portable {

/// A stored value.
struct StoredValue {
    std::string name;
    std::uint32_t type = 0;
    std::string data; ///< text types in UTF-8, other types unchanged
};

/// The tables of keys and values in a station's registry.db. Names are UTF-8. Keys are identified by row
/// numbers that are never reused; Root is the key of the machine's settings. Operations return result codes
/// (ErrorCode.h).
class RegistryStore {
public:
    static constexpr std::int64_t Root = 0;

    /// Opens the store. FileNotFound when it is missing and `create` is false; BadDatabase when the file is
    /// not such a store.
    static ErrorCode Open(const std::filesystem::path& file, bool create,
                          std::unique_ptr<RegistryStore>& store);

    bool IsReadOnly() const { return m_database.IsReadOnly(); }

    /// Success when the key exists, KeyDeleted when it does not.
    ErrorCode CheckKey(std::int64_t key);

    /// Finds the key at a path below another key; empty levels are skipped.
    ErrorCode FindKey(std::int64_t parent, const std::string& path, std::int64_t& key);

    /// Like FindKey, but creates missing keys. InvalidParameter for a level of over 255 characters.
    ErrorCode MakeKey(std::int64_t parent, const std::string& path, std::int64_t& key);

    /// Begins a group: EndGroup stores all writes of the group together. The transaction begins with the
    /// first write or with JoinGroup.
    void BeginGroup() {
        if (m_groups++ == 0) m_joined = ErrorCode::Success;
    }
    ErrorCode EndGroup();

    /// Begins the transaction of the current group, if any; other programs cannot write until its end. If
    /// that fails, it fails for the rest of the group.
    ErrorCode JoinGroup();

    /// Begins a consistent read: until EndReading, writes of other programs are not visible. They never are
    /// within the transaction of a group.
    void BeginReading();
    void EndReading();

    ErrorCode DeleteKey(std::int64_t key);
    ErrorCode SubkeyName(std::int64_t key, std::uint32_t index, std::string& name);

    ErrorCode ReadValue(std::int64_t key, const std::string& name, StoredValue& value);
    ErrorCode ReadValueAt(std::int64_t key, std::uint32_t index, StoredValue& value);
    ErrorCode WriteValue(std::int64_t key, const std::string& name, std::uint32_t type,
                         const std::string& data);
    ErrorCode DeleteValue(std::int64_t key, const std::string& name);

private:
    explicit RegistryStore(std::unique_ptr<Database> database);

    ErrorCode Commit();
    ErrorCode FindChild(std::int64_t parent, const std::string& name, std::int64_t& key);

    std::unique_ptr<Database> m_owner;
    Database& m_database;
    Statement m_exists;
    Statement m_findChild;
    Statement m_addKey;
    Statement m_hasChild;
    Statement m_deleteKey;
    Statement m_subkeyAt;
    Statement m_readValue;
    Statement m_valueAt;
    Statement m_writeValue;
    Statement m_deleteValue;
    int m_groups = 0;
    bool m_begun = false;                    // the group's transaction has begun
    ErrorCode m_joined = ErrorCode::Success; // of beginning it
    bool m_isReading = false;
};

} // namespace nesk::platform::portable
