#pragma once

#include "platform/ErrorCode.h"

#include <cstdint>
#include <string>

namespace nesk::platform {

/// Size and time of the last write of a file: they change when another program writes the file.
struct FileStamp {
    std::uint64_t size = 0; ///< in bytes
    std::int64_t time = 0;  ///< in units of the system; only good for comparing

    bool operator==(const FileStamp&) const = default;
};

/// Gets the stamp of a file without opening it. May be called in any thread.
/// @param path   Windows path
/// @param stamp  unchanged on failure
ErrorCode StampOf(const std::string& path, FileStamp& stamp);

} // namespace nesk::platform
