#pragma once

#include <optional>
#include <string>

/// What the folder browser begins with and accepts.
namespace nesk::BrowseChoice {

/// Folder at which browsing begins: `path` where it exists, otherwise the folder of this program.
std::string StartFolder(const std::string& path);

/// The folder that is chosen, ending in "\"; nothing for one that cannot be: it does not exist, or it is the
/// root of a drive. A root never is a choice, because what is kept in a chosen folder would lie loose there.
std::optional<std::string> Accept(const std::string& path);

} // namespace nesk::BrowseChoice
