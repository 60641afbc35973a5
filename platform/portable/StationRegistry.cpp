#include "platform/portable/StationRegistry.h"

#include "platform/ErrorCode.h"
#include "platform/Registry.h"
#include "platform/TextEncoding.h"
#include "platform/Utf8.h"
#include "platform/portable/BusyWait.h"
#include "platform/portable/RegistryStore.h"
#include "platform/portable/Station.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <optional>
#include <unordered_map>

namespace nesk::platform {

namespace {

using portable::RegistryStore;
using portable::StoredValue;

namespace Right {
constexpr std::uint32_t QueryValue = 1;
constexpr std::uint32_t SetValue = 2;
constexpr std::uint32_t CreateSubKey = 4;
constexpr std::uint32_t EnumerateSubKeys = 8;
constexpr std::uint32_t AnyWrite = SetValue | CreateSubKey;
} // namespace Right

// How long a busy store is reported as busy without a new attempt to open it. The attempt has waited already;
// a caller that opens several keys in a row must not wait for each.
constexpr std::chrono::seconds BusyAnswer{2};

constexpr std::size_t MaxValueNameLength = 16383;

bool IsText(std::uint32_t type) {
    return type == RegType::Text || type == RegType::ExpandText || type == RegType::MultiText;
}

// Converts text like the ANSI functions: each character that the code page lacks becomes "?".
std::string Narrow(const std::string& text) {
    if (std::optional<std::string> bytes = ToAnsi(text)) return std::move(*bytes);
    std::string bytes;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t length = 1;
        while (at + length < text.size() && ContinuesCharacter(text[at + length]))
            ++length;
        bytes += ToAnsi(std::string_view(text).substr(at, length)).value_or("?");
        at += length;
    }
    return bytes;
}

std::string DataOf(const StoredValue& value) {
    return IsText(value.type) ? Narrow(value.data) : value.data;
}

// Copies a value's data with the conventions of the registry functions.
ErrorCode CopyData(const std::string& data, char* buffer, std::uint32_t* size) {
    if (size == nullptr) return buffer == nullptr ? ErrorCode::Success : ErrorCode::InvalidParameter;
    const std::uint32_t capacity = *size;
    *size = static_cast<std::uint32_t>(data.size());
    if (buffer == nullptr) return ErrorCode::Success;
    if (data.size() > capacity) return ErrorCode::MoreData;
    std::memcpy(buffer, data.data(), data.size());
    return ErrorCode::Success;
}

class SqliteRegistry final : public Registry {
public:
    void Reopen() {
        m_store.reset();
        m_handles.clear();
        m_busyUntil = {};
    }

    ErrorCode OpenKey(RegKey parent, const std::string& path, std::uint32_t access, RegKey& key) override {
        return Open(parent, path, access, false, key);
    }

    ErrorCode CreateKey(RegKey parent, const std::string& path, std::uint32_t access, RegKey& key) override {
        return Open(parent, path, access, true, key);
    }

    ErrorCode CloseKey(RegKey key) override {
        if (key == LocalMachine) return ErrorCode::Success;
        return m_handles.erase(key) != 0 ? ErrorCode::Success : ErrorCode::InvalidHandle;
    }

    ErrorCode QueryValue(RegKey key, const std::string& name, std::uint32_t* type, char* data,
                         std::uint32_t* size) override {
        std::int64_t row = 0;
        if (const ErrorCode result = Use(key, Right::QueryValue, row); result != ErrorCode::Success)
            return result;
        // Within a group, values are read to compute what is written; other programs must not write in
        // between.
        if (const ErrorCode result = m_store->JoinGroup(); result != ErrorCode::Success) return result;
        StoredValue value;
        if (const ErrorCode result = m_store->ReadValue(row, FromAnsi(name), value);
            result != ErrorCode::Success)
            return result;
        if (type != nullptr) *type = value.type;
        return CopyData(DataOf(value), data, size);
    }

    ErrorCode SetValue(RegKey key, const std::string& name, std::uint32_t type,
                       std::string_view data) override {
        if (name.size() > MaxValueNameLength) return ErrorCode::InvalidParameter;
        std::int64_t row = 0;
        if (const ErrorCode result = Use(key, Right::SetValue, row); result != ErrorCode::Success)
            return result;
        const std::string stored = IsText(type) ? FromAnsi(data) : std::string(data);
        return m_store->WriteValue(row, FromAnsi(name), type, stored);
    }

    ErrorCode DeleteValue(RegKey key, const std::string& name) override {
        std::int64_t row = 0;
        if (const ErrorCode result = Use(key, Right::SetValue, row); result != ErrorCode::Success)
            return result;
        return m_store->DeleteValue(row, FromAnsi(name));
    }

    ErrorCode DeleteKey(RegKey parent, const std::string& subKey) override {
        if (subKey.empty()) return ErrorCode::InvalidParameter;
        // A path that consists of separators alone would name the parent itself.
        if (subKey.starts_with('\\')) return ErrorCode::BadPathName;
        std::int64_t row = 0;
        if (const ErrorCode result = Use(parent, 0, row); result != ErrorCode::Success) return result;
        if (const ErrorCode result = m_store->FindKey(row, FromAnsi(subKey), row);
            result != ErrorCode::Success)
            return result;
        return m_store->DeleteKey(row);
    }

    ErrorCode EnumKey(RegKey key, std::uint32_t index, char* name, std::uint32_t capacity) override {
        std::int64_t row = 0;
        if (const ErrorCode result = Use(key, Right::EnumerateSubKeys, row); result != ErrorCode::Success)
            return result;
        std::string found;
        if (const ErrorCode result = m_store->SubkeyName(row, index, found); result != ErrorCode::Success)
            return result;
        const std::string bytes = Narrow(found);
        if (bytes.size() >= capacity) return ErrorCode::MoreData;
        std::memcpy(name, bytes.c_str(), bytes.size() + 1);
        return ErrorCode::Success;
    }

    ErrorCode EnumValue(RegKey key, std::uint32_t index, char* name, std::uint32_t* nameSize,
                        std::uint32_t* type, char* data, std::uint32_t* size) override {
        std::int64_t row = 0;
        if (const ErrorCode result = Use(key, Right::QueryValue, row); result != ErrorCode::Success)
            return result;
        StoredValue value;
        if (const ErrorCode result = m_store->ReadValueAt(row, index, value); result != ErrorCode::Success)
            return result;
        const std::string bytes = Narrow(value.name);
        if (bytes.size() >= *nameSize) return ErrorCode::MoreData;
        std::memcpy(name, bytes.c_str(), bytes.size() + 1);
        *nameSize = static_cast<std::uint32_t>(bytes.size());
        if (type != nullptr) *type = value.type;
        return CopyData(DataOf(value), data, size);
    }

    void BeginGroup() override {
        ++m_groups;
        if (m_store) m_store->BeginGroup();
    }

    ErrorCode EndGroup() override {
        --m_groups;
        return m_store ? m_store->EndGroup() : ErrorCode::Success;
    }

    void BeginReading() override {
        m_isReading = true;
        if (m_store) m_store->BeginReading();
    }

    void EndReading() override {
        m_isReading = false;
        if (m_store) m_store->EndReading();
    }

    std::string Location() const override { return portable::ToWindowsPath(File()); }

private:
    struct Handle {
        std::int64_t row;
        std::uint32_t access;
    };

    static std::filesystem::path File() { return portable::StationFolder() / "registry.db"; }

    // Opens the store unless it is open. A missing store is created only for writing.
    ErrorCode EnsureStore(bool create) {
        if (m_store) return ErrorCode::Success;
        std::error_code error;
        if (create) {
            std::filesystem::create_directories(portable::StationFolder(), error);
            if (error) return ErrorCode::AccessDenied;
        }
        if (portable::TheBusyClock().Now() < m_busyUntil) return ErrorCode::Busy;
        const ErrorCode result = RegistryStore::Open(File(), create, m_store);
        if (result == ErrorCode::Busy) m_busyUntil = portable::TheBusyClock().Now() + BusyAnswer;
        // Groups or a consistent read may have begun before the store is opened.
        for (int i = 0; m_store && i < m_groups; ++i)
            m_store->BeginGroup();
        if (m_store && m_isReading) m_store->BeginReading();
        return result;
    }

    ErrorCode Open(RegKey parent, const std::string& path, std::uint32_t access, bool create, RegKey& key) {
        key = 0;
        if (path.starts_with('\\')) return ErrorCode::BadPathName;
        if (parent != LocalMachine && !m_handles.contains(parent)) return ErrorCode::InvalidHandle;
        if (const ErrorCode result = EnsureStore(create); result != ErrorCode::Success) return result;
        std::int64_t row = 0;
        // Opening a key needs no right on its parent; creating a key does.
        if (const ErrorCode result = Use(parent, create ? Right::CreateSubKey : 0, row);
            result != ErrorCode::Success)
            return result;
        const std::string name = FromAnsi(path);
        const ErrorCode found = create ? m_store->MakeKey(row, name, row) : m_store->FindKey(row, name, row);
        if (found != ErrorCode::Success) return found;
        if ((access & Right::AnyWrite) != 0 && m_store->IsReadOnly()) return ErrorCode::AccessDenied;
        key = ++m_lastHandle;
        m_handles[key] = {row, access};
        return ErrorCode::Success;
    }

    // Finds the row of an open key and checks the required rights.
    ErrorCode Use(RegKey key, std::uint32_t rights, std::int64_t& row) {
        if (key == LocalMachine) {
            row = RegistryStore::Root;
            return EnsureStore((rights & Right::AnyWrite) != 0);
        }
        const auto found = m_handles.find(key);
        if (found == m_handles.end()) return ErrorCode::InvalidHandle;
        if ((found->second.access & rights) != rights) return ErrorCode::AccessDenied;
        row = found->second.row;
        return m_store->CheckKey(row);
    }

    std::unique_ptr<RegistryStore> m_store;
    std::chrono::steady_clock::time_point m_busyUntil;
    int m_groups = 0;
    bool m_isReading = false;
    std::unordered_map<RegKey, Handle> m_handles;
    // Handle numbers begin above those of the predefined keys.
    RegKey m_lastHandle = std::uint64_t{1} << 32;
};

SqliteRegistry& TheRegistry() {
    static SqliteRegistry registry;
    return registry;
}

} // namespace

Registry& StationRegistry() {
    return TheRegistry();
}

void portable::ReopenStationRegistry() {
    TheRegistry().Reopen();
}

} // namespace nesk::platform
