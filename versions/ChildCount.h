#pragma once

#include <cstddef>

namespace nesk {

class MenuEntry;

/// Raises Overflow, with the caption of the submenu, when it cannot have so many children.
/// @param source  class and operation for the error
void CheckChildCount(const MenuEntry& parent, std::size_t count, const char* source);

} // namespace nesk
