#pragma once

#include "editing/UndoStack.h"

namespace nesk {

class Menu;
class MenuEditor;

/// Changes the open menu into another one, as one step for Undo. Entries that are the same in both keep their
/// ids as far as they stay in their submenu, and few events are reported. Texts are taken over unchecked.
/// When an error is raised, nothing has changed; Overflow when a submenu would have too many entries on the
/// way.
/// @param target  must not be the open menu itself
/// @param name    the name of the step
/// @return false when no menu is open, or when nothing differs
bool UpdateOpenMenu(MenuEditor& editor, const Menu& target, ChangeName name);

} // namespace nesk
