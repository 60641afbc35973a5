#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The folders below a folder, as the folder list shows them.
namespace nesk::FolderList {

/// Reads the names of the folders in a folder, sorted without regard to case. Links to folders count.
/// @param path  Windows path, with or without a trailing "\"
/// @return result code of the file system (platform/ErrorCode.h); Success for an empty folder
int Read(const std::string& path, std::vector<std::string>& names);

/// True when `a` stands before `b`.
bool Before(std::string_view a, std::string_view b);

/// A path taken apart.
struct Parts {
    std::string root = "C:\\"; ///< the drive, in capitals, or "\\server\share\"; C: for a path without either
    std::vector<std::string> names; ///< the folders from the root on; "." and ".." are resolved
};

/// Takes a Windows path apart.
Parts Split(std::string_view path);

} // namespace nesk::FolderList
