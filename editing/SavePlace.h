#pragma once

#include "editing/MenuEditor.h"

#include <optional>
#include <string>

namespace nesk {

class NeskRegistry;

/// The paths from which the menu is opened and to which it is saved, and the texts that describe them.
namespace SavePlace {

/// The path to which the menu is saved according to the settings. Raises PathNotFound when the settings name
/// no root folder, and PathNotFound or PermissionDenied when the root folder or its station cannot be
/// reached.
std::string Target(const NeskRegistry& settings);

/// The path from which the menu is opened according to the settings. It is the same path as Target. It raises
/// the same errors, but their texts advise a user who has no menu open.
std::string Origin(const NeskRegistry& settings);

/// The question to ask before a save with this plan; nothing when no question is needed. Raises the run-time
/// error of a file that exists and cannot be read, because no answer could save the menu.
std::optional<std::string> Question(const MenuEditor& editor, const std::string& path, const SavePlan& plan);

/// The text of the status bar: the file of the open menu, and the path to which it will be saved when the
/// settings have changed to another path. Does not access the disk.
std::string StatusText(const MenuEditor& editor, const NeskRegistry& settings);

/// The text above a menu that has no file yet; "" for every other menu. Does not access the disk.
std::string NewMenuText(const MenuEditor& editor, const NeskRegistry& settings);

} // namespace SavePlace
} // namespace nesk
