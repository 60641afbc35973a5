#pragma once

#include "platform/portable/FileHandle.h"

#include <filesystem>

/// Files that show whether the program that made them still works on them: it holds a lock on them, which the
/// system takes away when the program ends in whatever way. Both answer with 0 or an errno.
namespace nesk::platform::portable {

/// Creates a file that must not exist yet, readable and writable by its owner alone, and holds it until the
/// last descriptor of it is closed. EEXIST when it exists.
int CreateLocked(const std::filesystem::path& file, FileHandle& handle);

/// Deletes a file that nobody holds. EBUSY when somebody does, or when the file system knows no locks.
int RemoveUnlocked(const std::filesystem::path& file);

} // namespace nesk::platform::portable
