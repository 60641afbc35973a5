#pragma once

#include <string>

namespace nesk {

class MenuEntry;

/// Where an entry is, for a list of entries: the captions of the submenus above it from the top, for example
/// "Housing > Brackets". An entry of the main menu is in "Main Menu", the caption of the menu; the menu
/// itself is in "". Of more than 8 submenus only the nearest are named, after "...".
std::string EntryPlace(const MenuEntry& entry);

} // namespace nesk
