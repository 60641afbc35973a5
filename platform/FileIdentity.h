#pragma once

#include <string>

namespace nesk::platform {

/// A text that is the same for two paths exactly when they lead to the same file or folder, through links or
/// not; "" when the path leads nowhere.
std::string FileIdentity(const std::string& path);

} // namespace nesk::platform
