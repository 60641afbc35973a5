#pragma once

#include <ctime>
#include <optional>
#include <string>

namespace nesk {

/// A version of a menu file that was kept.
struct MenuVersion {
    std::string path;            ///< Windows path of the copy
    std::tm time{};              ///< local date and time of the version, to the second
    int number = 1;              ///< 1 for the first version of that second, then 2 and so on
    unsigned long long size = 0; ///< in bytes
};

/// Names of the versions of a menu file, for example "menu 2026-11-22 14.32.05.cfg" for "menu.cfg".
namespace VersionNames {

/// The folder of the versions: beside the file, with its name and "versions" instead of its extension.
/// @param path  Windows path of the menu file
std::string FolderOf(const std::string& path);

/// The name of a version.
/// @param number  from 1; the first one is not part of the name
std::string NameOf(const std::string& path, const std::tm& time, int number);

/// Time and number of the version with a name; nothing when the name is not that of a version of this file.
std::optional<MenuVersion> Parse(const std::string& path, const std::string& name);

/// True when one version is newer than another one.
bool IsNewer(const MenuVersion& one, const MenuVersion& other);

} // namespace VersionNames
} // namespace nesk
