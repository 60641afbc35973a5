#include "checking/EntryWalk.h"

#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <utility>
#include <vector>

namespace nesk {

void ForEachEntry(const MenuEntry& first, const std::function<void(const MenuEntry&)>& visit) {
    std::vector<std::pair<const MenuEntry*, int>> levels{{&first, 1}}; // an entry and its next child
    visit(first);
    while (!levels.empty()) {
        auto& [parent, next] = levels.back();
        if (next > parent->ChildCount()) {
            levels.pop_back();
            continue;
        }
        const MenuItem& child = parent->Children()->Item(next++);
        visit(child);
        levels.emplace_back(&child, 1);
    }
}

} // namespace nesk
