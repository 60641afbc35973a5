#pragma once

#include <ctime>
#include <string>

namespace nesk::platform {

/// Gets the time of the last write to a file.
/// @param path   Windows path
/// @param local  receives the local time; unchanged on failure
/// @return false when the file is missing or its time cannot be read
bool LastWriteTime(const std::string& path, std::tm& local);

/// The current local time.
std::tm LocalTime();

} // namespace nesk::platform
