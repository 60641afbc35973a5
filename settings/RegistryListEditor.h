#pragma once

#include <string>
#include <vector>

/// Adds entries to a list in the registry, and removes them, on a station whose lists no other software
/// keeps.
namespace nesk::RegistryListEditor {

/// Whether the lists of this station are edited here: where the station is a folder. Elsewhere other software
/// of the installation defines them.
bool MayEdit();

/// What is wrong with a display name: that it is blank, too long to be read back, or cannot be stored; "" for
/// a good one.
std::string NameProblem(const std::string& name);

/// Adds an entry with a display name, the blanks around it left out.
/// @param parentKey  key below the base path, as "Machines"
/// @return the entry's key, as "Machines\M1"
/// Raises the error of the registry.
std::string Add(const std::string& parentKey, const std::string& name);

/// Whether an entry may be removed. One that is in use must stay: another one is chosen and stored first.
/// @param key    as "Machines\M1"; "" for none, which cannot be removed
/// @param inUse  keys of the entries that are chosen or stored, in either case
bool MayRemove(const std::string& key, const std::vector<std::string>& inUse);

/// Removes an entry with everything below it. Raises the error of the registry.
/// @param key  as "Machines\M1"
void Remove(const std::string& key);

} // namespace nesk::RegistryListEditor
