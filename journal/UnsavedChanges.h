#pragma once

#include "journal/MenuJournal.h"
#include "menu/Menu.h"
#include "platform/FileSystem.h"

#include <cstdint>
#include <ctime>
#include <memory>
#include <optional>
#include <string>

namespace nesk {

/// Unsaved changes of a menu that an editor left behind when it was killed.
struct FoundJournal {
    std::string path;          ///< the journal
    bool isOfThisFile = false; ///< the menu file is the one to which the changes apply
    std::uint64_t changes = 0; ///< number of unsaved changes; 0 when none of them is readable
    std::tm time{};            ///< local time of the last change
    std::string owner;         ///< who made them
    bool isDamaged = false;    ///< part of the journal is not readable; the changes before that part are
    std::string hash;          ///< FileHash::Text of the file to which the changes apply
    std::string basePath;      ///< the menu file or a copy of it with that hash, or ""
};

/// A menu with unsaved changes in it.
struct RestoredMenu {
    std::unique_ptr<Menu> menu;
    bool isDamaged =
        false; ///< not all changes of the journal could be made; those before the first such were
};

/// Finding and restoring what a MenuJournal has written.
namespace UnsavedChanges {

/// The unsaved changes of a menu, the newest when several editors left some. Journals whose editor is running
/// are not looked at. Journals without unsaved changes are removed: the editor was killed between a save and
/// the removal of its journal.
std::optional<FoundJournal> Find(const std::string& menuPath, const JournalOptions& options,
                                 platform::FileSystem& files = platform::StationFiles());

/// Makes the changes in a copy of `base`.
/// @param base  the menu of the file to which the changes apply, as it was read or with other ids
RestoredMenu RestoreInto(const FoundJournal& found, const Menu& base,
                         platform::FileSystem& files = platform::StationFiles());

/// Reads the menu to which the changes apply, without registering histories and without messages. After an
/// error it has the entries before the error. It is empty when there was no file, and null when that file was
/// not found.
/// @param rootDirectory  folder that contains the menu file
std::unique_ptr<Menu> ReadBase(const FoundJournal& found, const std::string& rootDirectory,
                               platform::FileSystem& files = platform::StationFiles());

/// Removes the journal and the copy of its menu file.
/// @return the result for the journal
platform::ErrorCode Remove(const FoundJournal& found, platform::FileSystem& files = platform::StationFiles());

/// Renames the journal, so that an expert can look at it and no start finds it again. The new name ends in
/// ".damaged", and in a number if that name is taken.
/// @param kept  receives the new path
platform::ErrorCode SetAside(const FoundJournal& found, std::string& kept,
                             platform::FileSystem& files = platform::StationFiles());

} // namespace UnsavedChanges

} // namespace nesk
