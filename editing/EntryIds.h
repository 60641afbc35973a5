#pragma once

#include <string>
#include <vector>

namespace nesk {

class Menu;

/// Ids of several entries of a menu, for example of the selected ones.
using EntryIds = std::vector<std::string>;

/// The entries that an edit of several entries applies to: each entry once, in the order of the tree, without
/// entries below another one of them and without ids that do not exist. An edit of an entry includes
/// everything below it.
EntryIds Uppermost(const Menu& menu, const EntryIds& ids);

} // namespace nesk
