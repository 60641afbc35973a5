#pragma once

#include <optional>
#include <string>

/// Rules of the folder browser: its initial folder and the folders that it accepts.
namespace nesk::BrowseChoice {

/// The initial folder: `path` when it exists, otherwise the folder of this program.
std::string StartFolder(const std::string& path);

/// The chosen folder, ending in "\". Returns nothing when the folder cannot be chosen, because it does not
/// exist or is the root of a drive. A root is never accepted, because files for the chosen folder would then
/// be stored directly in the root.
std::optional<std::string> Accept(const std::string& path);

} // namespace nesk::BrowseChoice
