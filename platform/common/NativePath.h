#pragma once

#include <filesystem>
#include <string>

namespace nesk::platform::common {

/// The path by which the system's own functions and dialogs know a file of the station; empty when `path`
/// leads nowhere on it.
/// @param path  Windows path in UTF-8
std::filesystem::path ToNativePath(const std::string& path);

/// The reverse of ToNativePath, for an absolute path.
std::string FromNativePath(const std::filesystem::path& path);

} // namespace nesk::platform::common
