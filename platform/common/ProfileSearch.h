#pragma once

#include <cstddef>
#include <string>

namespace nesk::platform::common {

/// What ReadProfileString (ProfileFile.h) answers, found without the system's own function.
std::string SearchProfile(const std::string& file, const std::string& section, const std::string& key,
                          const std::string& defaultValue, std::size_t capacity);

} // namespace nesk::platform::common
