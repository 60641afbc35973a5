#pragma once

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"

#include <string>

namespace nesk {

/// Reads the bytes of a picture file. May be called in any thread.
/// @param path   Windows path
/// @param bytes  receives the bytes; empty after an error
/// @return an error when the file cannot be read; MoreData when it is larger than PictureLimits::LargestFile
platform::ErrorCode ReadPictureFile(const std::string& path, std::string& bytes,
                                    platform::FileSystem& files = platform::StationFiles());

} // namespace nesk
