#pragma once

#include <functional>

namespace nesk {

class MenuEntry;

/// Calls `visit` for an entry and for all entries below it, in the order of the tree. Works for any depth.
void ForEachEntry(const MenuEntry& first, const std::function<void(const MenuEntry&)>& visit);

} // namespace nesk
