#pragma once

#include <cstddef>
#include <string>

namespace nesk::platform::common {

/// Implements ReadProfileString (ProfileFile.h) without the system's function.
std::string SearchProfile(const std::string& file, const std::string& section, const std::string& key,
                          const std::string& defaultValue, std::size_t capacity);

} // namespace nesk::platform::common
