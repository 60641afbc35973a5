#pragma once

#include "editing/MenuCounts.h"

#include <cstddef>
#include <string>

namespace nesk {

/// The numbers of entries for the status bar: "5 submenus, 28 parts; 2 selected; 3 problems". A single
/// selected entry is not mentioned, because the tree shows it.
std::string CountsText(const EntryNumbers& numbers, std::size_t selected, std::size_t problems = 0);

} // namespace nesk
