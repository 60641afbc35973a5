#pragma once

#include "base/SafeFile.h"

#include <string>

namespace nesk {

/// The backup of the version before a save: the file's name and ".bak".
Backup BackupOf(const std::string& path);

/// The backup of a version that another program or user wrote: the file's name, the local time of its last
/// write, and ".bak", for example "menu.cfg.2026-11-22 14.32.05.bak". If the name is taken, a number is
/// added; an older copy is never replaced.
Backup DatedBackupOf(const std::string& path);

/// The backup of a file that could not be read to its end: its name and ".damaged". If the name is taken, a
/// number is added.
Backup DamagedBackupOf(const std::string& path);

} // namespace nesk
