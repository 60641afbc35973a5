#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace nesk {

/// A list that other software keeps in the registry. Its entries are the subkeys of one key, each with a
/// display name.
class RegistryList {
public:
    /// Reads the list. A failure is shown as an error report and leaves the list empty. On a station whose
    /// lists this program edits (RegistryListEditor), a missing key is not a failure: the list is empty.
    /// @param parentKey  key below the base path, for example "Machines"
    explicit RegistryList(std::string parentKey);

    /// Display names in the registry's order; "" for an entry without a name.
    const std::vector<std::string>& DisplayNames() const { return m_displayNames; }

    /// Key of an entry below the base path, for example "Machines\M1"; "" when the position does not exist.
    /// @param position  0-based position in DisplayNames; -1 for no entry
    std::string KeyAt(int position) const;

    /// 0-based position of the entry with a key, without regard to case; -1 when the key is not in the list.
    int PositionOf(const std::string& key) const;

private:
    void Read();

    std::string m_parentKey;
    std::vector<std::string> m_names; // names of the subkeys
    std::vector<std::string> m_displayNames;
};

} // namespace nesk
