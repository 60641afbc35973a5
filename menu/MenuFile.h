#pragma once

#include "base/FileHash.h"
#include "base/SafeFile.h"
#include "platform/FileSystem.h"

#include <string>

namespace nesk {

class Menu;

/// Replaces the file `path` by a menu, in one step. Raises the run-time error of a failed step, or 5000 for a
/// text that the code page cannot hold or that would end its line; the file is unchanged then.
/// @param backup  where the version before is kept
/// @param known   what the file is believed to hold. When the menu makes the same bytes, and the file does
///                hold them, an older backup stays, and a dated one is not made
/// @return the hash of the new file
FileHash SaveMenuFile(const Menu& menu, const std::string& path, const Backup& backup,
                      const FileHash& known = {}, platform::FileSystem& files = platform::StationFiles());

} // namespace nesk
