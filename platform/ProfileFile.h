#pragma once

#include <cstddef>
#include <string>

namespace nesk::platform {

/// Reads a value of a profile (.ini) file, with the results of GetPrivateProfileStringA.
///
/// Section and key are compared without regard to case; the first section of that name and the first such key
/// in it count. Spaces around the value and one pair of matching quotes around it are removed. If the file,
/// the section or the key is missing, or the file cannot be read, the result is `defaultValue` without its
/// trailing spaces.
/// @param file      Windows path including the folder
/// @param capacity  maximum size of the result in bytes of the code page, including the terminating zero; a
///                  longer value is truncated
std::string ReadProfileString(const std::string& file, const std::string& section, const std::string& key,
                              const std::string& defaultValue, std::size_t capacity);

} // namespace nesk::platform
