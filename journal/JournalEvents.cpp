#include "journal/JournalEvents.h"

#include "journal/JournalTree.h"
#include "menu/Menu.h"
#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace nesk::JournalEvents {

namespace {

// These numbers are stored in journals.
enum class Kind { Added = 1, Removed, Moved, Edited, Reordered, Whole };

void AppendKind(JournalEncoder& out, Kind kind) {
    out.Number(static_cast<std::uint64_t>(kind));
}

MenuEntry& ReadEntry(JournalDecoder& in, Menu& menu) {
    MenuEntry* const entry = JournalTree::ReadId(in, menu);
    if (entry == nullptr) throw JournalDamage("there is no such entry");
    return *entry;
}

MenuItem& ReadItem(JournalDecoder& in, Menu& menu) {
    auto* const item = dynamic_cast<MenuItem*>(&ReadEntry(in, menu));
    if (item == nullptr) throw JournalDamage("the root cannot be moved or removed");
    return *item;
}

// Makes room for a child, and reads its 1-based position.
int ReadPlace(JournalDecoder& in, MenuEntry& parent) {
    if (parent.ChildCount() >= MenuItemCollection::MaxCount)
        throw JournalDamage("there are too many entries");
    return in.NumberFrom(1, parent.ChildCount() + 1);
}

std::unique_ptr<MenuItem> Take(MenuItem& item) {
    MenuItemCollection& siblings = item.ParentMenu()->SubMenus();
    return siblings.Take(siblings.PositionOf(item));
}

void RepeatAdded(JournalDecoder& in, Menu& menu) {
    MenuEntry& parent = ReadEntry(in, menu);
    const int position = ReadPlace(in, parent);
    parent.SubMenus().Insert(position, JournalTree::ReadItem(in, parent));
}

void RepeatMoved(JournalDecoder& in, Menu& menu) {
    MenuItem& item = ReadItem(in, menu);
    MenuEntry& parent = ReadEntry(in, menu);
    for (const MenuEntry* at = &parent; at != nullptr; at = at->ParentMenu())
        if (at == &item) throw JournalDamage("an entry cannot be below itself");
    const std::int32_t counter = JournalTree::ReadCounter(in, parent, &item);
    std::unique_ptr<MenuItem> taken = Take(item);
    taken->SetPlace(parent, counter);
    parent.KeepCounter(counter);
    const int position = ReadPlace(in, parent);
    parent.SubMenus().Insert(position, std::move(taken));
}

void RepeatReordered(JournalDecoder& in, Menu& menu) {
    MenuEntry& parent = ReadEntry(in, menu);
    std::vector<std::int32_t> counters;
    for (int left = in.NumberFrom(0, MenuItemCollection::MaxCount); left > 0; --left)
        counters.push_back(in.NumberFrom(1, std::numeric_limits<std::int32_t>::max()));
    if (parent.Children() == nullptr || !parent.Children()->Reorder(counters))
        throw JournalDamage("the order is one of other entries");
}

// The counters of the children of an entry, in their order.
void AppendOrder(JournalEncoder& out, const MenuEntry& parent) {
    const std::vector<std::int32_t> counters =
        parent.Children() != nullptr ? parent.Children()->Counters() : std::vector<std::int32_t>{};
    out.Number(counters.size());
    for (const std::int32_t counter : counters)
        out.Number(static_cast<std::uint64_t>(counter));
}

} // namespace

void Append(JournalEncoder& out, const MenuEvent& event, const Menu& menu) {
    const MenuEntry* const entry = menu.Find(event.id);
    const auto* const item = dynamic_cast<const MenuItem*>(entry);
    switch (event.kind) {
    case MenuEvent::Kind::None: return;
    case MenuEvent::Kind::Removed:
        AppendKind(out, Kind::Removed);
        return JournalTree::AppendId(out, event.id);
    case MenuEvent::Kind::Added:
        if (item == nullptr) break;
        AppendKind(out, Kind::Added);
        JournalTree::AppendId(out, event.parentId);
        out.Number(static_cast<std::uint64_t>(event.position));
        return JournalTree::AppendItem(out, *item);
    case MenuEvent::Kind::Moved:
        if (item == nullptr) break;
        AppendKind(out, Kind::Moved);
        JournalTree::AppendId(out, event.formerId.empty() ? event.id : event.formerId);
        JournalTree::AppendId(out, event.parentId);
        out.Number(static_cast<std::uint64_t>(item->Counter()));
        return out.Number(static_cast<std::uint64_t>(event.position));
    case MenuEvent::Kind::Edited:
        if (entry == nullptr) break;
        AppendKind(out, Kind::Edited);
        JournalTree::AppendId(out, event.id);
        return JournalTree::AppendFields(out, *entry);
    case MenuEvent::Kind::Reordered:
        if (entry == nullptr) break;
        AppendKind(out, Kind::Reordered);
        JournalTree::AppendId(out, event.id);
        return AppendOrder(out, *entry);
    }
    throw JournalDamage("an event names an entry that does not exist");
}

void AppendWhole(JournalEncoder& out, const Menu& menu) {
    AppendKind(out, Kind::Whole);
    JournalTree::AppendMenu(out, menu);
}

void Repeat(JournalDecoder& in, Menu& menu) {
    switch (static_cast<Kind>(in.NumberFrom(1, static_cast<int>(Kind::Whole)))) {
    case Kind::Added: return RepeatAdded(in, menu);
    case Kind::Removed: Take(ReadItem(in, menu)); return;
    case Kind::Moved: return RepeatMoved(in, menu);
    case Kind::Edited: {
        MenuEntry& entry = ReadEntry(in, menu);
        return JournalTree::ReadFields(in, entry);
    }
    case Kind::Reordered: return RepeatReordered(in, menu);
    case Kind::Whole: return JournalTree::ReadMenu(in, menu);
    }
}

} // namespace nesk::JournalEvents
