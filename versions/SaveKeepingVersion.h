#pragma once

#include "editing/MenuEditor.h"
#include "platform/FileSystem.h"
#include "versions/VersionStore.h"

#include <string>

namespace nesk {

/// Saves the open menu, and keeps the version before. A version that cannot be kept does not prevent the
/// save: on a disk that is too full for both, the version is given up. Raises the errors of MenuEditor::Save.
/// @param path   the menu file
/// @param store  the versions of that file
/// @return what became of the version before
VersionStore::Kept SaveKeepingVersion(MenuEditor& editor, const std::string& path, const SavePlan& plan,
                                      VersionStore& store,
                                      platform::FileSystem& files = platform::StationFiles());

} // namespace nesk
