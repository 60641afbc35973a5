#pragma once

#include <string>

namespace nesk::platform::common {

/// Converts a filter of the open-file dialog to the form of the system's dialog, with the matching rules of
/// Windows: names are compared without regard to case, and "*.*" matches every name.
/// @param filter  pairs of description and patterns, separated by "|"; patterns are separated by ";"
std::string NativeFilter(const std::string& filter);

} // namespace nesk::platform::common
