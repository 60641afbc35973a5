// Edits of several entries at once.

#include "editing/MenuEditor.h"

#include "base/Messages.h"
#include "editing/EntryText.h"
#include "editing/InsertChange.h"
#include "editing/MoveToChange.h"
#include "editing/OrderChange.h"
#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "platform/Collation.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <new>
#include <unordered_set>

namespace nesk {

namespace {

const MenuItem* AsItem(const MenuEntry* entry) {
    return dynamic_cast<const MenuItem*>(entry);
}

// Runs an edit; when there is not enough memory for it, raises OutOfMemory.
template <typename Edit>
auto WithMemory(const char* source, Edit edit) {
    try {
        return edit();
    } catch (const std::bad_alloc&) {
        throw NeskError(RuntimeError::OutOfMemory, source, Message::NoMemoryToEdit);
    }
}

int PositionOf(const MenuItem& item) {
    return item.ParentMenu()->Children()->PositionOf(item);
}

} // namespace

std::vector<const MenuItem*> MenuEditor::ItemsOf(const EntryIds& ids) const {
    std::vector<const MenuItem*> items;
    for (const std::string& id : ids)
        if (const MenuItem* item = AsItem(Find(id))) items.push_back(item);
    return items;
}

// The ids of each parent, in the order of the tree.
std::vector<EntryIds> MenuEditor::ByParent(const EntryIds& ids) const {
    std::vector<EntryIds> groups;
    std::map<std::string, std::size_t> places;
    for (const MenuItem* item : ItemsOf(ids)) {
        const auto [place, isNew] = places.emplace(item->ParentMenu()->ID(), groups.size());
        if (isNew) groups.emplace_back();
        groups[place->second].push_back(item->ID());
    }
    return groups;
}

ChangeName MenuEditor::NameFor(int textId, int textIdForSeveral, const EntryIds& ids) const {
    if (ids.size() == 1) return NameFor(textId, ids.front());
    return {textIdForSeveral, {std::to_string(ids.size())}};
}

MenuCommands MenuEditor::CommandsFor(const EntryIds& ids) const {
    if (ids.size() == 1) return CommandsFor(ids.front());
    MenuCommands commands;
    const std::vector<const MenuItem*> items = ItemsOf(ids);
    if (items.empty()) return commands;
    commands.sort = !SortTarget(ids).empty();
    commands.addParts = !AddPartsTarget(ids).empty();
    commands.remove = commands.copy = commands.pasteAfter = true;
    commands.edit =
        std::any_of(items.begin(), items.end(), [](const MenuItem* item) { return item->IsPart(); });
    for (const EntryIds& block : ByParent(ids)) {
        const MenuItem& first = *AsItem(Find(block.front()));
        const MenuItem& last = *AsItem(Find(block.back()));
        commands.moveUp = commands.moveUp || PositionOf(first) > 1;
        commands.moveDown = commands.moveDown || PositionOf(last) < last.ParentMenu()->ChildCount();
        if (block.size() < ids.size()) continue;
        commands.moveOut = first.ParentMenu()->ParentMenu() != nullptr;
        commands.moveIn = SubmenuBefore(first) != nullptr;
    }
    return commands;
}

bool MenuEditor::RemoveAs(ChangeName name, const EntryIds& ids) {
    if (ItemsOf(ids).empty()) return false;
    Group group(*this, std::move(name), ids.size());
    // From the last on, so that few siblings have to close ranks.
    std::for_each(ids.rbegin(), ids.rend(), [this](const std::string& id) { Remove(id); });
    group.Commit();
    return true;
}

bool MenuEditor::Remove(const EntryIds& ids) {
    return RemoveAs(NameFor(Message::ChangeRemove, Message::ChangeRemoveSeveral, ids), ids);
}

bool MenuEditor::Cut(const EntryIds& ids) {
    return RemoveAs(NameFor(Message::ChangeCut, Message::ChangeCutSeveral, ids), ids);
}

bool MenuEditor::MoveBlocks(const EntryIds& ids, bool up) {
    Group group(*this, NameFor(Message::ChangeMove, Message::ChangeMoveSeveral, ids), ids.size());
    bool isMoved = false;
    for (EntryIds block : ByParent(ids)) {
        if (!up) std::reverse(block.begin(), block.end());
        // When the leading entry cannot move, the others would close up to it.
        const MenuCommands leading = CommandsFor(block.front());
        if (!(up ? leading.moveUp : leading.moveDown)) continue;
        for (const std::string& id : block)
            isMoved |= up ? MoveUp(id) : MoveDown(id);
    }
    group.Commit();
    return isMoved;
}

bool MenuEditor::MoveUp(const EntryIds& ids) {
    return MoveBlocks(ids, true);
}

bool MenuEditor::MoveDown(const EntryIds& ids) {
    return MoveBlocks(ids, false);
}

EntryIds MenuEditor::MoveOut(const EntryIds& ids) {
    if (!CommandsFor(ids).moveOut) return {};
    const MenuItem& submenu = *AsItem(AsItem(Find(ids.front()))->ParentMenu());
    return MoveTo(ids, submenu.ParentMenu()->ID(), PositionOf(submenu) + 1);
}

EntryIds MenuEditor::MoveIn(const EntryIds& ids) {
    if (!CommandsFor(ids).moveIn) return {};
    return MoveTo(ids, SubmenuBefore(*AsItem(Find(ids.front())))->ID(), 0);
}

// Returns whether entries are children of `parent` that stand together, and would not move if they were put
// behind its first `before` children.
bool MenuEditor::IsBlockAt(const EntryIds& ids, const MenuEntry& parent, int before) const {
    const std::vector<const MenuItem*> items = ItemsOf(ids);
    if (items.empty()) return false;
    int next = PositionOf(*items.front());
    const int first = next;
    for (const MenuItem* item : items)
        if (item->ParentMenu() != &parent || PositionOf(*item) != next++) return false;
    return before >= first - 1 && before <= next - 1;
}

EntryIds MenuEditor::MoveTo(const EntryIds& ids, const std::string& parentId, int position) {
    if (auto refusal = WhyNotMoveTo(ids, parentId)) throw *std::move(refusal);
    const MenuEntry* parent = Find(parentId);
    if (parent == nullptr) return {};
    // The number of children before the place.
    int before = position > 0 ? std::min(position - 1, parent->ChildCount()) : parent->ChildCount();
    if (IsBlockAt(ids, *parent, before)) return ids;
    EntryIds moved;
    Group group(*this, NameFor(Message::ChangeMove, Message::ChangeMoveSeveral, ids), ids.size());
    for (const std::string& id : ids) {
        const MenuItem* item = AsItem(Find(id));
        if (item == nullptr) continue;
        const bool leavesBefore = item->ParentMenu() == parent && PositionOf(*item) <= before;
        if (leavesBefore) --before;
        moved.push_back(MoveTo(id, parentId, before + 1));
        ++before;
    }
    group.Commit();
    return moved;
}

std::optional<NeskError> MenuEditor::WhyNotMoveTo(const EntryIds& ids, const std::string& parentId) const {
    const MenuEntry* parent = Find(parentId);
    if (parent == nullptr) return std::nullopt;
    std::size_t arriving = 0;
    std::unordered_set<const MenuEntry*> above;
    for (const MenuEntry* at = parent; at != nullptr; at = at->ParentMenu())
        above.insert(at);
    for (const std::string& id : ids) {
        const MenuEntry* entry = Find(id);
        if (entry == nullptr) continue;
        if (entry->ParentMenu() != parent) ++arriving;
        if (above.contains(entry)) return MoveToChange::WhyNot(*m_menu, id, parentId);
    }
    return WhyNotCopyTo(arriving, parentId);
}

std::optional<NeskError> MenuEditor::WhyNotCopyTo(std::size_t count, const std::string& parentId) const {
    const MenuEntry* parent = Find(parentId);
    if (parent == nullptr) return std::nullopt;
    if (const MenuItem* part = AsItem(parent); part != nullptr && part->IsPart())
        return NeskError(5000, "MenuEditor.CopyTo", Message::MoveIntoPart, {std::string(part->Caption())});
    const auto room = static_cast<std::size_t>(MenuItemCollection::MaxCount - parent->ChildCount());
    if (count > room)
        return NeskError(
            RuntimeError::Overflow, "MenuEditor.CopyTo", Message::TooManyEntries,
            {std::string(parent->Caption()), std::to_string(parent->ChildCount()), std::to_string(count)});
    return std::nullopt;
}

std::string MenuEditor::CopyText(const EntryIds& ids) const {
    return WithMemory("MenuEditor.CopyText", [&] { return EntryText::Write(ItemsOf(ids)); });
}

// Inserts the entries of a text. The name of the change is completed with their caption or number.
EntryIds MenuEditor::InsertFrom(std::string_view text, const std::string& parentId, int position,
                                ChangeName name) {
    MenuEntry* parent = m_menu ? m_menu->Find(parentId) : nullptr;
    if (parent == nullptr) return {};
    if (auto refusal = WhyNotCopyTo(0, parentId)) throw *std::move(refusal);
    auto items = EntryText::Read(text, *parent);
    if (auto refusal = WhyNotCopyTo(items.size(), parentId)) throw *std::move(refusal);
    const bool isOne = items.size() == 1;
    name.arguments = {isOne ? std::string(items.front()->Caption()) : std::to_string(items.size())};
    if (!isOne)
        name.textId =
            name.textId == Message::ChangeCopy ? Message::ChangeCopySeveral : Message::ChangePasteSeveral;
    const int count = parent->ChildCount();
    int at = position > 0 ? std::min(position, count + 1) : count + 1;
    EntryIds ids;
    Group group(*this, std::move(name), items.size());
    for (auto& item : items) {
        ids.push_back(item->ID());
        Make(std::make_unique<InsertChange>(std::move(item), parentId, at++), {});
    }
    group.Commit();
    return ids;
}

EntryIds MenuEditor::Paste(std::string_view text, const std::string& parentId, int position) {
    return WithMemory("MenuEditor.Paste", [&] {
        return InsertFrom(text, parentId, position, {Message::ChangePaste, {}});
    });
}

EntryIds MenuEditor::CopyTo(const EntryIds& ids, const std::string& parentId, int position) {
    if (auto refusal = WhyNotCopyTo(ids.size(), parentId)) throw *std::move(refusal);
    const std::string text = CopyText(ids);
    return WithMemory("MenuEditor.CopyTo", [&] {
        return InsertFrom(text, parentId, position, {Message::ChangeCopy, {}});
    });
}

EntryIds MenuEditor::Duplicate(const EntryIds& ids) {
    const MenuItem* last = ids.empty() ? nullptr : AsItem(Find(ids.back()));
    return last != nullptr ? CopyTo(ids, last->ParentMenu()->ID(), PositionOf(*last) + 1) : EntryIds{};
}

std::string MenuEditor::SortTarget(const EntryIds& ids) const {
    if (ids.empty()) return "";
    const MenuEntry* target = Find(ids.front());
    const MenuItem* first = AsItem(target);
    if (first != nullptr && (ids.size() > 1 || first->IsPart())) target = first->ParentMenu();
    if (target == nullptr || target->ChildCount() < 2) return "";
    const std::string id = target->ID();
    const bool areSiblings =
        ids.size() == 1 || std::all_of(ids.begin(), ids.end(), [&](const std::string& selected) {
            return MenuId::OfParent(selected) == id;
        });
    return areSiblings ? id : "";
}

std::string MenuEditor::AddPartsTarget(const EntryIds& ids) const {
    const MenuEntry* target = ids.empty() ? nullptr : Find(ids.front());
    if (target == nullptr) return "";
    const MenuItem* first = AsItem(target);
    if (first != nullptr && (ids.size() > 1 || first->IsPart())) target = first->ParentMenu();
    return target->ID();
}

bool MenuEditor::Sort(const std::string& parentId, bool submenusFirst) {
    const MenuEntry* parent = Find(parentId);
    if (parent == nullptr || parent->ChildCount() < 2) return false;
    const MenuItemCollection& children = *parent->Children();
    std::vector<std::string> captions;
    for (int i = 1; i <= children.Count(); ++i)
        captions.emplace_back(children.Item(i).Caption());
    std::vector<std::size_t> order = platform::SortedOrder(captions);
    if (submenusFirst)
        std::stable_partition(order.begin(), order.end(), [&](std::size_t index) {
            return !children.Item(static_cast<int>(index) + 1).IsPart();
        });
    if (std::is_sorted(order.begin(), order.end())) return false;
    const std::vector<std::int32_t> before = children.Counters();
    std::vector<std::int32_t> counters;
    std::transform(order.begin(), order.end(), std::back_inserter(counters),
                   [&](std::size_t index) { return before[index]; });
    return Make(std::make_unique<OrderChange>(parentId, std::move(counters)),
                NameFor(Message::ChangeSort, parentId));
}

bool MenuEditor::SetParts(const EntryIds& ids, const CommonPartFields& fields) {
    bool isChanged = false;
    EntryIds parts;
    for (const MenuItem* item : ItemsOf(ids))
        if (item->IsPart()) parts.push_back(item->ID());
    Group group(*this, NameFor(Message::ChangePart, Message::ChangePartSeveral, parts), parts.size());
    for (const std::string& id : parts) {
        const PartFields before = PartFieldsOf(*AsItem(Find(id)));
        PartFields after = before;
        after.graphic = fields.graphic.value_or(before.graphic);
        after.historyDir = fields.historyDir.value_or(before.historyDir);
        if (after != before) isChanged |= SetPart(id, after);
    }
    group.Commit();
    return isChanged;
}

} // namespace nesk
