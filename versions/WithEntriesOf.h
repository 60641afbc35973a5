#pragma once

#include "menu/Menu.h"
#include "versions/MenuDiff.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace nesk {

/// A copy of the present menu in which chosen entries are again as in an earlier version: removed ones are
/// back in their place, added ones are gone, moved ones are where they were, and fields have their former
/// values. Nothing else differs from the present menu, except for submenus that restored entries need, and
/// for entries that would otherwise contain each other. An entry whose submenu is not in the result goes to
/// the next submenu above.
///
/// Raises Overflow when a submenu would have too many entries.
/// @param sinceVersion  the difference from the version to the present menu
/// @param chosen        indices of its nodes; each stands for everything below it too
std::unique_ptr<Menu> WithEntriesOf(const MenuDiff& sinceVersion, const std::vector<std::size_t>& chosen);

} // namespace nesk
