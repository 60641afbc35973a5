#include "editing/EntryIds.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <unordered_set>

namespace nesk {

namespace {

using EntrySet = std::unordered_set<const MenuEntry*>;

// The entries above the chosen ones. Their children have to be looked at.
EntrySet EntriesAbove(const EntrySet& chosen) {
    EntrySet above;
    for (const MenuEntry* entry : chosen)
        for (const MenuEntry* at = entry->ParentMenu(); at != nullptr && above.insert(at).second;)
            at = at->ParentMenu();
    return above;
}

} // namespace

EntryIds Uppermost(const Menu& menu, const EntryIds& ids) {
    EntrySet chosen;
    for (const std::string& id : ids)
        if (const MenuEntry* entry = menu.Find(id)) chosen.insert(entry);
    if (chosen.size() == 1) return {(*chosen.begin())->ID()};
    if (chosen.contains(&menu)) return {menu.ID()};
    const EntrySet above = EntriesAbove(chosen);

    // Visits the entries above the chosen ones from the top. There is no recursion, because a deeply nested
    // menu could overflow the machine stack.
    struct Visit {
        const MenuEntry* entry;
        int position;
    };
    EntryIds uppermost;
    std::vector<Visit> open;
    if (above.contains(&menu)) open.push_back({&menu, 0});
    while (!open.empty()) {
        Visit& top = open.back();
        if (top.position == top.entry->ChildCount()) {
            open.pop_back();
            continue;
        }
        const MenuItem& item = top.entry->Children()->Item(++top.position);
        if (chosen.contains(&item))
            uppermost.push_back(item.ID());
        else if (above.contains(&item))
            open.push_back({&item, 0});
    }
    return uppermost;
}

} // namespace nesk
