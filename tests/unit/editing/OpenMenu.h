#pragma once

#include "editing/MenuEditor.h"

namespace nesk::testing {

/// The open menu, to be changed past its editor: for a state that no edit leads to, a text that cannot be
/// stored for example.
inline Menu& OpenMenuOf(MenuEditor& editor) {
    return const_cast<Menu&>(*editor.OpenMenu());
}

} // namespace nesk::testing
