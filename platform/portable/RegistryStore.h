#pragma once

#include "platform/portable/Database.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace nesk::platform::portable {

/// A value as it is stored.
struct StoredValue {
    std::string name;
    std::uint32_t type = 0;
    std::string data; ///< text types in UTF-8, others as they were written
};

/// The tables of keys and values in a station's registry.db. Names are UTF-8. Keys are known by row numbers
/// that are never used twice; Root is the machine's settings. Operations answer with result codes
/// (ErrorCode.h).
class RegistryStore {
public:
    static constexpr std::int64_t Root = 0;

    /// Opens the store. FileNotFound when it is missing and not to be created; BadDatabase when it is none of
    /// ours.
    static int Open(const std::filesystem::path& file, bool create, std::unique_ptr<RegistryStore>& store);

    bool IsReadOnly() const { return m_database.IsReadOnly(); }

    /// Success when the key exists, KeyDeleted when it does not.
    int CheckKey(std::int64_t key);

    /// The key at a path below another; empty levels are skipped.
    int FindKey(std::int64_t parent, const std::string& path, std::int64_t& key);

    /// As FindKey, creating what is missing. InvalidParameter for a level of over 255 characters.
    int MakeKey(std::int64_t parent, const std::string& path, std::int64_t& key);

    /// From now on what is written is stored together by EndGroup. The transaction begins with the first
    /// write, or where JoinGroup asks for it.
    void BeginGroup() {
        if (m_groups++ == 0) m_joined = 0;
    }
    int EndGroup();

    /// Begins the transaction of a group, when there is one: nobody else writes from then on until its end.
    /// When that fails, it fails for the rest of the group.
    int JoinGroup();

    /// In between, what other programs write is not seen. Within the transaction of a group it never is.
    void BeginReading();
    void EndReading();

    int DeleteKey(std::int64_t key);
    int SubkeyName(std::int64_t key, std::uint32_t index, std::string& name);

    int ReadValue(std::int64_t key, const std::string& name, StoredValue& value);
    int ReadValueAt(std::int64_t key, std::uint32_t index, StoredValue& value);
    int WriteValue(std::int64_t key, const std::string& name, std::uint32_t type, const std::string& data);
    int DeleteValue(std::int64_t key, const std::string& name);

private:
    explicit RegistryStore(std::unique_ptr<Database> database);

    int Commit();
    int FindChild(std::int64_t parent, const std::string& name, std::int64_t& key);

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
    bool m_begun = false; // the transaction of the group
    int m_joined = 0;     // how beginning it went
    bool m_isReading = false;
};

} // namespace nesk::platform::portable
