#include "settings/RegEntry.h"

#include "base/LanguageTable.h"
#include "base/Messages.h"
#include "base/NeskError.h"
#include "platform/ErrorCode.h"
#include "platform/TextEncoding.h"

#include <array>
#include <limits>
#include <optional>
#include <tuple>
#include <utility>

namespace nesk {

namespace {

using platform::ErrorCode;
using platform::RegKey;

constexpr std::size_t LongestText = 255;
// One byte of a name buffer is reserved, so that a name always has room for its terminating zero.
constexpr std::uint32_t NameBufferSize = 256;
constexpr std::uint32_t NameCapacity = NameBufferSize - 1;
constexpr std::uint32_t MaxValueNameLength = 16384;

std::int16_t Count(std::size_t count, const char* source) {
    if (count > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max()))
        throw NeskError(RuntimeError::Overflow, source, Message::Overflow);
    return static_cast<std::int16_t>(count);
}

bool IsText(std::uint32_t type) {
    return type == platform::RegType::Text || type == platform::RegType::ExpandText ||
           type == platform::RegType::MultiText;
}

// The name of a key or value that was opened or listed before, so it can be encoded in the code page.
std::string AnsiName(const std::string& name) {
    return platform::ToAnsi(name).value();
}

// Closes a key. If that fails, the key is not open any more, which is what the caller wants.
void Close(platform::Registry& registry, RegKey key) {
    std::ignore = registry.CloseKey(key);
}

// Closes a key at the end of its scope, also when an error is raised.
class KeyCloser {
public:
    KeyCloser(platform::Registry& registry, RegKey key) : m_registry(registry), m_key(key) {}
    ~KeyCloser() { Close(m_registry, m_key); }
    KeyCloser(const KeyCloser&) = delete;
    KeyCloser& operator=(const KeyCloser&) = delete;

private:
    platform::Registry& m_registry;
    RegKey m_key;
};

} // namespace

struct RegEntry::Contents {
    std::string name;
    std::vector<RegValue> values; // with their data as stored
    std::vector<Contents> subkeys;
};

RegEntry::RegEntry(platform::Registry& registry) : m_registry(registry), m_basePath("SOFTWARE\\Quarndale") {}

RegEntry::~RegEntry() {
    CloseKey();
}

std::string RegEntry::FullPath(const std::string& sKey) const {
    return m_basePath + "\\" + sKey;
}

void RegEntry::CloseKey() {
    if (m_key != 0) Close(m_registry, std::exchange(m_key, 0));
}

ErrorCode RegEntry::OpenLevel(RegKey parent, const std::string& path, RegKey& key) {
    key = 0;
    const std::optional<std::string> ansi = platform::ToAnsi(path);
    m_lastResult = ansi ? m_registry.OpenKey(parent, *ansi, platform::RegAccess::ReadWrite, key)
                        : ErrorCode::FileNotFound;
    return m_lastResult;
}

RegKey RegEntry::OpenInternal(RegKey root, const std::string& path) {
    RegKey key = 0;
    if (OpenLevel(root, path, key) != ErrorCode::Success)
        throw NeskError(5001, "RegEntry.OpenInternal", Message::RegKeyNotOpened, {path});
    return key;
}

RegKey RegEntry::CreateInternal(RegKey root, const std::string& path) {
    RegKey parent = root;
    std::string rest = path;
    const auto release = [&](RegKey key) {
        if (key != root) Close(m_registry, key);
    };
    for (;;) {
        const std::size_t separator = rest.find('\\');
        const std::string level = rest.substr(0, separator);
        RegKey key = 0;
        if (OpenLevel(parent, level, key) != ErrorCode::Success) {
            const std::optional<std::string> ansi = platform::ToAnsi(level);
            m_lastResult = ansi ? m_registry.CreateKey(parent, *ansi, platform::RegAccess::ReadWrite, key)
                                : ErrorCode::InvalidParameter;
        }
        const ErrorCode result = m_lastResult;
        release(parent);
        if (result != ErrorCode::Success) {
            if (separator != std::string::npos)
                throw NeskError(5000, "RegEntry.CreateInternal", Message::RegLevelNotCreated, {level});
            throw NeskError(5000, "RegEntry.CreateInternal", Message::RegKeyNotOpened, {rest});
        }
        if (separator == std::string::npos) return key;
        parent = key;
        rest.erase(0, separator + 1);
    }
}

void RegEntry::OpenKey(const std::string& sKey) {
    CloseKey();
    m_key = OpenInternal(platform::LocalMachine, FullPath(sKey));
}

void RegEntry::CreateKey(const std::string& sKey) {
    CloseKey();
    m_key = CreateInternal(platform::LocalMachine, FullPath(sKey));
}

bool RegEntry::TestKey(const std::string& sKey) {
    RegKey key = 0;
    if (OpenLevel(platform::LocalMachine, FullPath(sKey), key) != ErrorCode::Success) return false;
    Close(m_registry, key);
    return true;
}

void RegEntry::DeleteKey(const std::string& sKey) {
    if (m_key != 0) DeleteInternal(m_key, sKey);
}

void RegEntry::DeleteInternal(RegKey lParentKey, const std::string& sKey) {
    RegKey key = 0;
    if (OpenLevel(lParentKey, sKey, key) != ErrorCode::Success)
        throw NeskError(5001, "RegEntry.CopyInternal", Message::RegKeyNotOpened, {sKey});
    // Always takes the subkey at index 0, because each deletion moves the next subkey to the front. A subkey
    // that may not be deleted would stay at index 0, so the loop stops there.
    std::array<char, NameBufferSize> name{};
    std::string last;
    while (m_registry.EnumKey(key, 0, name.data(), NameCapacity) == ErrorCode::Success) {
        const std::string subkey = platform::FromAnsi(name.data());
        if (subkey == last) break;
        last = subkey;
        try {
            DeleteInternal(key, subkey);
        } catch (const NeskError&) {
            Close(m_registry, key);
            throw;
        }
    }
    Close(m_registry, key);
    // A key that may not be deleted stays, as a subkey of it does.
    std::ignore = m_registry.DeleteKey(lParentKey, AnsiName(sKey));
}

std::string RegEntry::ReadText(RegKey key, const std::string& name) {
    // A name that cannot be encoded in the code page cannot be the name of a value.
    const std::optional<std::string> ansi = platform::ToAnsi(name);
    std::array<char, LongestText + 1> buffer{};
    auto size = static_cast<std::uint32_t>(buffer.size());
    m_lastResult =
        ansi ? m_registry.QueryValue(key, *ansi, nullptr, buffer.data(), &size) : ErrorCode::FileNotFound;
    if (m_lastResult != ErrorCode::Success) return "";
    std::string_view bytes(buffer.data(), size);
    if (bytes.ends_with('\0')) bytes.remove_suffix(1);
    return bytes.size() > LongestText ? "" : platform::FromAnsi(bytes);
}

std::string RegEntry::GetString(const std::string& sName) {
    return m_key == 0 ? "" : ReadText(m_key, sName);
}

std::string RegEntry::GetStringInternational(const std::string& sName, std::int32_t lId) {
    const std::string text = GetString(sName + LanguageCode(lId));
    return text.empty() ? GetString(sName) : text;
}

bool RegEntry::GetBoolean(const std::string& sName) {
    const std::string text = platform::ToUpper(GetString(sName));
    return !text.empty() && text != "0" && text != "NO" && text != "FALSE";
}

void RegEntry::SetString(const std::string& sName, const std::string& sValue) {
    if (m_key == 0) return;
    if (sValue.empty()) return DeleteValue(sName);
    const std::optional<std::string> name = platform::ToAnsi(sName);
    const std::optional<std::string> value = platform::ToAnsi(sValue);
    if (!value)
        throw NeskError(5002, "RegEntry.SetValue", Message::RegNotEncodable,
                        {sName, platform::FirstNotEncodable(sValue), std::to_string(platform::CodePage())});
    // The terminating zero is not written. GetString reads values with and without it.
    m_lastResult = name ? m_registry.SetValue(m_key, *name, platform::RegType::Text, *value)
                        : ErrorCode::InvalidParameter;
    if (m_lastResult != ErrorCode::Success)
        throw NeskError(5002, "RegEntry.SetValue", Message::RegValueNotWritten, {sName});
}

void RegEntry::SetBoolean(const std::string& sName, bool bValue) {
    SetString(sName, bValue ? "true" : "false");
}

void RegEntry::DeleteValue(const std::string& sName) {
    const std::optional<std::string> name = platform::ToAnsi(sName);
    // Usually the value is missing. Any other failure is not reported either.
    if (m_key != 0 && name) std::ignore = m_registry.DeleteValue(m_key, *name);
}

std::vector<std::string> RegEntry::SubkeyNames(RegKey key) {
    std::vector<std::string> names;
    for (std::uint32_t index = 0;; ++index) {
        std::array<char, NameBufferSize> name{};
        // The buffer is filled with a character other than zero, so that a missing terminating zero is
        // detected.
        name.fill('\1');
        const ErrorCode result = m_registry.EnumKey(key, index, name.data(), NameCapacity);
        if (result == ErrorCode::MoreData) continue;
        if (result != ErrorCode::Success) return names;
        const std::string_view bytes(name.data(), name.size());
        const std::size_t end = bytes.find('\0');
        if (end == std::string_view::npos) throw NeskError(5000, "RegEntry.Query", Message::NoEndingZero);
        names.push_back(platform::FromAnsi(bytes.substr(0, end)));
    }
}

std::int16_t RegEntry::Query(std::vector<std::string>& colKeys) {
    if (m_key == 0) return 0;
    const std::vector<std::string> names = SubkeyNames(m_key);
    colKeys.insert(colKeys.end(), names.begin(), names.end());
    return Count(names.size(), "RegEntry.Query");
}

std::vector<RegValue> RegEntry::Values(RegKey key) {
    std::vector<RegValue> values;
    std::vector<char> name(MaxValueNameLength);
    std::vector<char> data(LongestText + 1);
    for (std::uint32_t index = 0;; ++index) {
        auto nameSize = static_cast<std::uint32_t>(name.size());
        auto size = static_cast<std::uint32_t>(data.size());
        RegValue value;
        ErrorCode result =
            m_registry.EnumValue(key, index, name.data(), &nameSize, &value.type, data.data(), &size);
        if (result == ErrorCode::MoreData && size > data.size()) {
            data.resize(size);
            nameSize = static_cast<std::uint32_t>(name.size());
            result =
                m_registry.EnumValue(key, index, name.data(), &nameSize, &value.type, data.data(), &size);
        }
        if (result != ErrorCode::Success) return values;
        value.name = platform::FromAnsi({name.data(), nameSize});
        value.data.assign(data.data(), size);
        values.push_back(std::move(value));
    }
}

std::int16_t RegEntry::QueryValues(std::vector<RegValue>& vResults) {
    vResults.clear();
    if (m_key != 0) vResults = Values(m_key);
    for (RegValue& value : vResults) {
        if (!IsText(value.type)) continue;
        if (value.data.ends_with('\0')) value.data.pop_back();
        value.data = platform::FromAnsi(value.data);
    }
    return Count(vResults.size(), "RegEntry.QueryValues");
}

RegEntry::Contents RegEntry::ReadContents(RegKey key) {
    Contents contents;
    contents.values = Values(key);
    for (const std::string& name : SubkeyNames(key)) {
        RegKey subkey = 0;
        if (OpenLevel(key, name, subkey) != ErrorCode::Success)
            throw NeskError(5001, "RegEntry.CopyInternal", Message::RegKeyNotOpened, {name});
        const KeyCloser closer(m_registry, subkey);
        contents.subkeys.push_back(ReadContents(subkey));
        contents.subkeys.back().name = name;
    }
    return contents;
}

void RegEntry::Copy(const std::string& sNewKey) {
    if (m_key == 0) return;
    try {
        // Everything is read before anything is written, because the new key may be inside the copied key.
        const Contents contents = ReadContents(m_key);
        const RegKey target = CreateInternal(platform::LocalMachine, FullPath(sNewKey));
        const KeyCloser closer(m_registry, target);
        CopyInternal(target, contents);
    } catch (NeskError& error) {
        error.source = "RegEntry.CopyInternal";
        throw;
    }
}

void RegEntry::CopyInternal(RegKey target, const Contents& contents) {
    for (const RegValue& value : contents.values) {
        if (m_registry.SetValue(target, AnsiName(value.name), value.type, value.data) != ErrorCode::Success)
            throw NeskError(5002, "RegEntry.CopyInternal", Message::RegValueNotWritten, {value.name});
    }
    for (const Contents& below : contents.subkeys) {
        const RegKey subkey = CreateInternal(target, below.name);
        const KeyCloser closer(m_registry, subkey);
        CopyInternal(subkey, below);
    }
}

namespace {

// The part of HKEY_CLASSES_ROOT that belongs to the machine.
const std::string ClassesRoot = "SOFTWARE\\Classes";

} // namespace

std::string RegEntry::DefaultText(const std::string& path) {
    RegKey key = 0;
    if (OpenLevel(platform::LocalMachine, path, key) != ErrorCode::Success) return "";
    std::string text = ReadText(key, "");
    Close(m_registry, key);
    return text;
}

std::string RegEntry::GetClassID(const std::string& sProgID) {
    return sProgID.empty() ? "" : DefaultText(ClassesRoot + "\\" + sProgID + "\\Clsid");
}

void RegEntry::DeleteIfPresent(const std::string& parentPath, const std::string& key) {
    RegKey parent = 0;
    if (OpenLevel(platform::LocalMachine, parentPath, parent) != ErrorCode::Success) return;
    try {
        DeleteInternal(parent, key);
    } catch (const NeskError&) {
        // The key is not registered, so there is nothing to remove.
    }
    Close(m_registry, parent);
}

void RegEntry::RemoveProgID(const std::string& sProgID) {
    // An empty name below a parent key means the parent itself, and so all classes of the machine.
    if (sProgID.empty()) return;
    const std::string classId = GetClassID(sProgID);
    if (!classId.empty()) {
        const std::string library = DefaultText(ClassesRoot + "\\CLSID\\" + classId + "\\TypeLib");
        if (!library.empty()) DeleteIfPresent(ClassesRoot + "\\TypeLib", library);
        DeleteIfPresent(ClassesRoot + "\\CLSID", classId);
    }
    DeleteIfPresent(ClassesRoot, sProgID);
}

} // namespace nesk
