#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace nesk {

/// The entries of a list that other software keeps in the registry: the subkeys of one key, each with its
/// display name.
class RegistryList {
public:
    /// Reads the list. A failure is shown as an error report and leaves the list empty; so does, without a
    /// report, a missing key on a station whose lists are made here (RegistryListEditor).
    /// @param parentKey  key below the base path, as "Machines"
    explicit RegistryList(std::string parentKey);

    /// Display names in the registry's order; "" for an entry without a name.
    const std::vector<std::string>& DisplayNames() const { return m_displayNames; }

    /// Key of an entry below the base path, as "Machines\M1"; "" when there is no such position.
    /// @param position  0-based position in DisplayNames; -1 for none
    std::string KeyAt(int position) const;

    /// 0-based position of an entry, by its key in either case; -1 when it is not listed.
    int PositionOf(const std::string& key) const;

private:
    void Read();

    std::string m_parentKey;
    std::vector<std::string> m_names; // of the subkeys
    std::vector<std::string> m_displayNames;
};

} // namespace nesk
