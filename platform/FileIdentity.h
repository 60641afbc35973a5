#pragma once

#include <string>

namespace nesk::platform {

/// A text that identifies a file or folder: equal for two paths exactly when both lead to the same one,
/// directly or through links; "" when nothing exists at the path.
std::string FileIdentity(const std::string& path);

} // namespace nesk::platform
