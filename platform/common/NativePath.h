#pragma once

#include <filesystem>
#include <string>

namespace nesk::platform::common {

/// The native path of a file of the station, for the system's functions and dialogs; empty when `path` has no
/// counterpart there.
/// @param path  Windows path in UTF-8
std::filesystem::path ToNativePath(const std::string& path);

/// The reverse of ToNativePath, for an absolute path.
std::string FromNativePath(const std::filesystem::path& path);

} // namespace nesk::platform::common
