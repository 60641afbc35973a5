#pragma once

#include <string_view>

namespace nesk::platform {

/// True when a file name matches `pattern`, in which "*" is any text and "?" any character, compared without
/// regard to case. "*.*" matches every name, as on Windows.
bool MatchesPattern(std::string_view name, std::string_view pattern);

} // namespace nesk::platform
