#pragma once

#include "base/FileHash.h"
#include "base/SafeFile.h"
#include "platform/FileSystem.h"

#include <string>

namespace nesk {

class Menu;

/// Replaces the file `path` by a menu, in one step. Raises the run-time error of a failed step, or 5000 for a
/// text that the code page cannot represent or that contains a line end; the file is then unchanged.
/// @param backup  where to keep the previous version
/// @param known   the expected hash of the existing file. When the menu produces the same bytes, and the file
///                really has this hash, an older backup is kept and no dated backup is made
/// @return the hash of the new file
FileHash SaveMenuFile(const Menu& menu, const std::string& path, const Backup& backup,
                      const FileHash& known = {}, platform::FileSystem& files = platform::StationFiles());

/// The hash of the file that SaveMenuFile would write. Raises 5000 for a text that cannot be stored.
FileHash HashOfSaved(const Menu& menu);

} // namespace nesk
