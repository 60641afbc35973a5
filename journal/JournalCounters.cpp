#include "journal/JournalTree.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <cstdint>
#include <limits>
#include <unordered_set>
#include <vector>

namespace nesk::JournalCounters {

namespace {

// Whether the children of an entry have the counters that a reader gives them.
bool AreAsRead(const MenuItemCollection& children) {
    for (int i = 1; i <= children.Count(); ++i)
        if (children.Item(i).Counter() != i) return false;
    return true;
}

// Calls `visit` for every entry that has children, in the order of the tree.
template <typename Entry, typename Visit>
void ForEachParent(Entry& root, const Visit& visit) {
    struct Open {
        Entry* entry;
        int position;
    };
    if (root.ChildCount() == 0) return;
    visit(root);
    std::vector<Open> open{{&root, 0}};
    while (!open.empty()) {
        Open& top = open.back();
        if (top.position == top.entry->ChildCount()) {
            open.pop_back();
            continue;
        }
        auto& item = top.entry->Children()->Item(++top.position);
        if (item.ChildCount() == 0) continue;
        visit(item);
        open.push_back({&item, 0});
    }
}

void CountAsRead(MenuItemCollection& children) {
    std::vector<std::int32_t> counters;
    for (std::int32_t counter = 1; counter <= children.Count(); ++counter)
        counters.push_back(counter);
    children.Renumber(counters);
}

std::vector<std::int32_t> ReadCounters(JournalDecoder& in, int count) {
    std::vector<std::int32_t> counters;
    std::unordered_set<std::int32_t> seen;
    while (count-- > 0) {
        counters.push_back(in.NumberFrom(1, std::numeric_limits<std::int32_t>::max() - 1));
        if (!seen.insert(counters.back()).second) throw JournalDamage("two entries have the same id");
    }
    return counters;
}

} // namespace

// Runs of entries whose children are counted as read, and between them the counters of the children of one
// entry: run, counters, run, counters, ..., run.
std::string Of(const Menu& menu) {
    std::string bytes;
    JournalEncoder out(bytes);
    std::uint64_t run = 0;
    ForEachParent<const MenuEntry>(menu, [&](const MenuEntry& entry) {
        const MenuItemCollection& children = *entry.Children();
        if (AreAsRead(children)) {
            ++run;
            return;
        }
        out.Number(run);
        run = 0;
        out.Number(static_cast<std::uint64_t>(children.Count()));
        for (const std::int32_t counter : children.Counters())
            out.Number(static_cast<std::uint64_t>(counter));
    });
    out.Number(run);
    return bytes;
}

void Restore(Menu& menu, std::string_view counters) {
    JournalDecoder in(counters);
    const bool isAsRead = counters.empty();
    std::uint64_t run = isAsRead ? std::numeric_limits<std::uint64_t>::max() : in.Number();
    ForEachParent<MenuEntry>(menu, [&](MenuEntry& entry) {
        MenuItemCollection& children = *entry.Children();
        if (run > 0) {
            --run;
            if (!AreAsRead(children)) CountAsRead(children);
            return;
        }
        const int count = in.NumberFrom(1, MenuItemCollection::MaxCount);
        if (count != children.Count()) throw JournalDamage("the menu has other entries");
        children.Renumber(ReadCounters(in, count));
        run = in.Number();
    });
    if (!isAsRead && (run != 0 || !in.AtEnd())) throw JournalDamage("the menu has fewer entries");
}

} // namespace nesk::JournalCounters
