#pragma once

#include "editing/MenuEditor.h"

namespace nesk::testing {

/// Gives write access to the open menu and bypasses its editor. Used for states that no edit can reach, such
/// as a text that cannot be stored.
inline Menu& OpenMenuOf(MenuEditor& editor) {
    return const_cast<Menu&>(*editor.OpenMenu());
}

} // namespace nesk::testing
