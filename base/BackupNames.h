#pragma once

#include "base/SafeFile.h"

#include <string>

namespace nesk {

/// Where the version before a save is kept: the file's name and ".bak".
Backup BackupOf(const std::string& path);

/// Where a version that somebody else wrote is kept: the file's name, the local time at which it was written,
/// and ".bak", as "menu.cfg.2026-11-22 14.32.05.bak". A name that is taken gets a number; an older copy is
/// never replaced.
Backup DatedBackupOf(const std::string& path);

/// Where a file that could not be read to its end is kept: its name and ".damaged", with a number when that
/// name is taken.
Backup DamagedBackupOf(const std::string& path);

} // namespace nesk
