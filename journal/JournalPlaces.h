#pragma once

#include <string>
#include <vector>

/// Where the unsaved changes of menus are.
namespace nesk::JournalPlaces {

/// The places beside a menu, the first choice first: "menu.cfg.unsaved", "menu.cfg.unsaved-2", ... Each
/// editor that has the menu open takes one that no other has.
std::vector<std::string> Beside(const std::string& menuPath);

/// The places in a folder of the user, for a menu whose own folder cannot be written. Their names contain a
/// hash of the menu's path. None when `folder` is "".
std::vector<std::string> InFolder(const std::string& folder, const std::string& menuPath);

/// The copy of the menu file to which the changes of a journal apply.
std::string BaseOf(const std::string& journalPath);

} // namespace nesk::JournalPlaces
