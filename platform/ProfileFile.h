#pragma once

#include <cstddef>
#include <string>

namespace nesk::platform {

/// Reads a value of a profile (.ini) file, answering as GetPrivateProfileStringA does.
///
/// Section and key match without regard to case; the first section of the name and the first key in it count.
/// Blanks around the value and one pair of matching quotes around it are dropped. A missing or unreadable
/// file, a missing section or key gives `defaultValue`, whose trailing blanks are dropped.
/// @param file      Windows path with its folder
/// @param capacity  size of the answer in bytes of the code page, the terminating zero included; a longer
/// value is cut
std::string ReadProfileString(const std::string& file, const std::string& section, const std::string& key,
                              const std::string& defaultValue, std::size_t capacity);

} // namespace nesk::platform
