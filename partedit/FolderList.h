#pragma once

#include "platform/ErrorCode.h"

#include <string>
#include <string_view>
#include <vector>

/// Reads the subfolders of a folder for the folder list, and parses paths.
namespace nesk::FolderList {

/// Reads the names of the folders in a folder, sorted without regard to case. Links to folders are included.
/// @param path  Windows path, with or without a trailing "\"
/// @return result code of the file system; Success for an empty folder
platform::ErrorCode Read(const std::string& path, std::vector<std::string>& names);

/// True when `a` sorts before `b`.
bool Before(std::string_view a, std::string_view b);

/// A parsed path.
struct Parts {
    std::string root = "C:\\"; ///< the drive in upper case, or "\\server\share\"; C: for a path with neither
    std::vector<std::string> names; ///< the folders after the root; "." and ".." are resolved
};

/// Parses a Windows path.
Parts Split(std::string_view path);

} // namespace nesk::FolderList
