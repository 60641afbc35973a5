#pragma once

#include "menu/Menu.h"

#include <string>

namespace nesk::testing {

/// All of a menu as text: a line for each entry with its id and its fields.
std::string TreeText(const Menu& menu);

/// The same without the ids.
std::string TreeTextWithoutIds(const Menu& menu);

} // namespace nesk::testing
