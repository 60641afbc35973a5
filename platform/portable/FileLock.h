#pragma once

#include "platform/portable/FileHandle.h"

#include <filesystem>

/// File locks that show whether the program that created a file still uses it. The system releases the lock
/// when the program ends for any reason. CreateLocked and RemoveUnlocked return 0 or an errno value.
namespace nesk::platform::portable {

/// Creates a file that must not exist yet, readable and writable by its owner alone. The file is locked until
/// its last descriptor is closed. EEXIST when the file exists.
int CreateLocked(const std::filesystem::path& file, FileHandle& handle);

/// Deletes a file that is not locked. EBUSY when it is locked or the file system does not support locks.
int RemoveUnlocked(const std::filesystem::path& file);

/// True when a file is locked by its creator. False when it is missing or cannot be opened.
bool IsLocked(const std::filesystem::path& file);

} // namespace nesk::platform::portable
