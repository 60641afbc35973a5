#pragma once

#include <string>

namespace nesk::platform::common {

/// A filter of the open-file dialog as the system's dialog takes it, so that it offers what Windows would:
/// names match without regard to case, and "*.*" is every name.
/// @param filter  pairs of description and patterns, separated by "|"; patterns are separated by ";"
std::string NativeFilter(const std::string& filter);

} // namespace nesk::platform::common
