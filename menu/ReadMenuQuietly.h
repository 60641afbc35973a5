#pragma once

#include "base/FileHash.h"
#include "base/NeskError.h"
#include "menu/Menu.h"
#include "platform/FileSystem.h"

#include <memory>
#include <optional>
#include <string>

namespace nesk {

/// A menu file that was read without opening it.
struct QuietMenu {
    /// The menu; null when there is no file. After an error it has the entries before the error.
    std::unique_ptr<Menu> menu;

    /// The hash of the file. A missing file has a hash of its own.
    FileHash hash;

    /// The error that stopped reading, with the file and the line.
    std::optional<NeskError> error;

    /// True when the file ended before the end of its menu.
    bool endIsMissing = false;

    bool Exists() const { return hash.Exists(); }

    /// True when the whole menu was read.
    bool IsWhole() const { return menu && !error && !endIsMissing; }
};

/// Reads a menu file into a menu of its own. Registers no histories and shows no message.
/// @param path           Windows path of the file
/// @param rootDirectory  folder that contains the menu file
QuietMenu ReadMenuQuietly(const std::string& path, const std::string& rootDirectory,
                          platform::FileSystem& files = platform::StationFiles());

} // namespace nesk
