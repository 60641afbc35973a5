#pragma once

#include "platform/Registry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace nesk {

/// One value of a registry key.
struct RegValue {
    std::string name;
    std::uint32_t type = 0; ///< one of platform::RegType
    std::string data;       ///< as stored; text in UTF-8 without its terminating zero
};

/// An open registry key below SOFTWARE\Quarndale of the machine's settings, and its text values.
///
/// Every key is opened for reading and writing, so reading also requires write access. This reveals at once
/// an installation whose settings can be read but not saved. Errors are raised as NeskError; the object stays
/// usable, without an open key.
class RegEntry {
public:
    explicit RegEntry(platform::Registry& registry = platform::StationRegistry());
    ~RegEntry();
    RegEntry(const RegEntry&) = delete;
    RegEntry& operator=(const RegEntry&) = delete;

    /// Copies the values and subkeys of the open key to the key `sNewKey`, and creates that key if necessary.
    /// Does nothing when no key is open. Raises 5000, 5001 or 5002 with the source "RegEntry.CopyInternal".
    void Copy(const std::string& sNewKey);

    /// Opens a key, and creates every missing level. Raises 5000 when a level cannot be created.
    void CreateKey(const std::string& sKey);

    /// Opens an existing key. Raises 5001 when it cannot be opened.
    void OpenKey(const std::string& sKey);

    /// True when the key can be opened. Does not raise errors, and does not change which key is open.
    bool TestKey(const std::string& sKey);

    /// Deletes the subkey `sKey` of the open key and everything below it. Raises 5001 when it cannot be
    /// opened.
    void DeleteKey(const std::string& sKey);

    /// Does the same as DeleteKey below any open key.
    void DeleteInternal(platform::RegKey lParentKey, const std::string& sKey);

    /// Text of a value of up to 255 characters; "" when it is missing or longer, or when no key is open.
    std::string GetString(const std::string& sName);

    /// Text of the value whose name is `sName` followed by the three-letter code of the language `lId`. When
    /// that text is empty, the text of the value `sName`.
    std::string GetStringInternational(const std::string& sName, std::int32_t lId);

    /// False for "", "0", "no" and "false" in any case; true for every other text.
    bool GetBoolean(const std::string& sName);

    /// Writes a text value; an empty text removes the value. Raises 5002 when the value cannot be written.
    void SetString(const std::string& sName, const std::string& sValue);

    /// Writes "true" or "false".
    void SetBoolean(const std::string& sName, bool bValue);

    /// Removes a value. Ignores a missing value.
    void DeleteValue(const std::string& sName);

    /// Appends the names of the open key's subkeys to `colKeys`, in the registry's order, and returns their
    /// number.
    std::int16_t Query(std::vector<std::string>& colKeys);

    /// Replaces `vResults` by the open key's values and returns their number.
    std::int16_t QueryValues(std::vector<RegValue>& vResults);

    /// Class id registered for a COM programmatic identifier; "" when it is not registered.
    std::string GetClassID(const std::string& sProgID);

    /// Removes the registration of a COM class: the keys of its programmatic identifier, of its class id, and
    /// of the type library of the class. Missing keys are skipped.
    void RemoveProgID(const std::string& sProgID);

    /// Result code of the last attempt to open or create a key or to read or write a value
    /// (platform/ErrorCode.h).
    platform::ErrorCode LastResult() const { return m_lastResult; }

private:
    /// A key and everything below it.
    struct Contents;

    platform::RegKey OpenInternal(platform::RegKey root, const std::string& path);
    platform::RegKey CreateInternal(platform::RegKey root, const std::string& path);
    platform::ErrorCode OpenLevel(platform::RegKey parent, const std::string& path, platform::RegKey& key);
    Contents ReadContents(platform::RegKey key);
    void CopyInternal(platform::RegKey target, const Contents& contents);
    std::vector<std::string> SubkeyNames(platform::RegKey key);
    /// The values of a key, with their data as the stored bytes.
    std::vector<RegValue> Values(platform::RegKey key);
    std::string ReadText(platform::RegKey key, const std::string& name);
    std::string DefaultText(const std::string& path);
    void DeleteIfPresent(const std::string& parentPath, const std::string& key);
    std::string FullPath(const std::string& sKey) const;
    void CloseKey();

    platform::Registry& m_registry;
    platform::RegKey m_key = 0;
    std::string m_basePath;
    platform::ErrorCode m_lastResult = platform::ErrorCode::Success;
};

} // namespace nesk
