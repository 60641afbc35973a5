#pragma once

#include <string>

namespace nesk::platform {

/// Folder for data of this user that no other program needs, as a Windows path without a trailing "\". It may
/// be missing. "" when the user has no such folder.
std::string UserDataFolder();

} // namespace nesk::platform
