#pragma once

#include "menu/Menu.h"
#include "platform/FileSystem.h"

#include <memory>
#include <string>
#include <vector>

namespace nesk {

/// Finds a former version of a menu by its hash: in files that are named, in the backups beside the menu, and
/// among its kept versions.
/// @param path           the menu file
/// @param rootDirectory  folder that contains it
/// @param hash           FileHash::Text of that version
/// @param likely         files that are looked at first; "" is ignored
/// @return null when no file has this hash, or none of those could be read to its end
std::unique_ptr<Menu> FindVersion(const std::string& path, const std::string& hash,
                                  const std::string& rootDirectory, const std::vector<std::string>& likely,
                                  platform::FileSystem& files = platform::StationFiles());

} // namespace nesk
