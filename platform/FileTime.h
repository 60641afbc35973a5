#pragma once

#include <ctime>
#include <string>

namespace nesk::platform {

/// When a file was last written.
/// @param path   Windows path
/// @param local  receives the local time; unchanged when the answer is false
/// @return false when the file is missing or cannot be asked
bool LastWriteTime(const std::string& path, std::tm& local);

/// The local time now.
std::tm LocalTime();

} // namespace nesk::platform
