#pragma once

#include "editing/MenuEditor.h"
#include "menu/Menu.h"
#include "menu/ReadMenuQuietly.h"
#include "platform/FileSystem.h"
#include "versions/MenuMerge.h"

#include <memory>
#include <string>

/// How the open menu takes over a version of its file that others have saved.
namespace nesk::OthersChanges {

/// Makes that version the open menu, which has no unsaved changes. One undo step.
/// @param theirs  the whole version
/// @return the difference to the menu before, in words
std::string Load(MenuEditor& editor, const QuietMenu& theirs);

/// The menu before the unsaved changes: empty when there was no file, null when no file has it any more.
/// @param copy  path of a file that may hold it, or ""
std::unique_ptr<Menu> Base(const MenuEditor& editor, const std::string& copy,
                           platform::FileSystem& files = platform::StationFiles());

/// Makes the result of a merge with that version the open menu. One undo step. Nothing is unsaved afterwards
/// if the result is that version.
void TakeMerged(MenuEditor& editor, const QuietMenu& theirs, const MenuMerge& merge);

} // namespace nesk::OthersChanges
