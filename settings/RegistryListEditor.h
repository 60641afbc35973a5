#pragma once

#include <string>
#include <vector>

/// Adds and removes entries of a list in the registry. For stations whose lists are not maintained by other
/// software.
namespace nesk::RegistryListEditor {

/// True when this program edits the lists of the station: when the station is a folder. On other stations,
/// other software of the installation defines the lists.
bool MayEdit();

/// Returns what is wrong with a display name: it is blank, is too long to be read back, or cannot be stored.
/// Returns "" for a valid name.
std::string NameProblem(const std::string& name);

/// Adds an entry. Spaces around its display name are removed. Raises the error of the registry.
/// @param parentKey  key below the base path, for example "Machines"
/// @return the entry's key, for example "Machines\M1"
std::string Add(const std::string& parentKey, const std::string& name);

/// True when an entry may be removed. An entry in use must stay: the user must first choose and store another
/// one.
/// @param key    for example "Machines\M1"; "" for no entry, which cannot be removed
/// @param inUse  keys of the entries that are chosen or stored, without regard to case
bool MayRemove(const std::string& key, const std::vector<std::string>& inUse);

/// Removes an entry and everything below it. Raises the error of the registry.
/// @param key  for example "Machines\M1"
void Remove(const std::string& key);

} // namespace nesk::RegistryListEditor
