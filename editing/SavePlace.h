#pragma once

#include "editing/MenuEditor.h"

#include <optional>
#include <string>

namespace nesk {

class NeskRegistry;

/// Where the menu is opened from and saved to, and what the user is told about it.
namespace SavePlace {

/// Path to which the settings say that the menu is saved. Raises PathNotFound when they name no root folder,
/// and PathNotFound or PermissionDenied when that folder, or the station with it, cannot be reached.
std::string Target(const NeskRegistry& settings);

/// Path from which the settings say that the menu is opened: the same one. The errors are those of Target,
/// and their texts advise a user who has no menu open.
std::string Origin(const NeskRegistry& settings);

/// The question that is due before a save as planned; nothing when none is. Raises the run-time error of a
/// file that is there and cannot be read: no answer could save the menu.
std::optional<std::string> Question(const MenuEditor& editor, const std::string& path, const SavePlan& plan);

/// What the status bar shows: the file of the open menu and, where the settings name another place since, to
/// which path it will be saved. Looks up nothing on the disk.
std::string StatusText(const MenuEditor& editor, const NeskRegistry& settings);

/// What is said above a menu that has no file yet; "" for every other one. Looks up nothing on the disk.
std::string NewMenuText(const MenuEditor& editor, const NeskRegistry& settings);

} // namespace SavePlace
} // namespace nesk
