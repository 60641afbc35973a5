#include "versions/MenuUpdate.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "editing/InsertChange.h"
#include "editing/MenuEditor.h"
#include "editing/MoveToChange.h"
#include "editing/OrderChange.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "versions/FieldsChange.h"
#include "versions/FlatMenu.h"
#include "versions/LongestRun.h"
#include "versions/TreeMatch.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace nesk {

namespace {

constexpr int None = FlatMenu::None;

// The edits that turn the open menu into another one. Entries keep their addresses when they are moved.
class Update {
public:
    Update(MenuEditor& editor, const FlatMenu& now, const FlatMenu& target, const TreeMatch& match)
        : m_editor(editor)
        , m_now(now)
        , m_target(target)
        , m_match(match)
        , m_entries(static_cast<std::size_t>(target.Count()), nullptr)
        , m_keeps(static_cast<std::size_t>(now.Count()), false) {
        for (int at = 0; at < target.Count(); ++at)
            if (const int former = m_match.Before(at); former != None) EntryOf(at) = &now.Entry(former);
        // Whether something in a subtree stays in the menu.
        for (int at = now.Count() - 1; at >= 0; --at) {
            const auto index = static_cast<std::size_t>(at);
            if (m_match.After(at) != None) m_keeps[index] = true;
            if (m_keeps[index] && at > 0) m_keeps[static_cast<std::size_t>(now.Parent(at))] = true;
        }
    }

    void Run() {
        // First what goes as a whole, to make room. Then from the root down: everything above an entry is in
        // its place when its turn comes, so no move can lead below the moved entry itself.
        RemoveWhole();
        for (int at = 0; at < m_target.Count(); ++at) {
            SetFields(at);
            if (!IsSettled(at)) PlaceChildren(at);
        }
        RemoveRest();
    }

private:
    const MenuEntry*& EntryOf(int target) { return m_entries[static_cast<std::size_t>(target)]; }

    void Make(const std::function<std::unique_ptr<MenuChange>(Menu&)>& prepare) {
        if (!m_editor.MakePrepared(prepare)) throw NeskError(5000, "UpdateOpenMenu", Message::NoMemoryToEdit);
    }

    void Remove(const MenuEntry& entry) {
        Make([&](Menu&) { return std::make_unique<RemoveChange>(entry.ID()); });
    }

    // From the last on, so that few siblings have to close ranks.
    void RemoveWhole() {
        for (int at = m_now.Count() - 1; at > 0; --at)
            if (!Keeps(at) && Keeps(m_now.Parent(at))) Remove(m_now.Entry(at));
    }

    // What remains of removed entries that contained others. The uppermost ones take the rest with them.
    void RemoveRest() {
        for (int at = 1; at < m_now.Count(); ++at)
            if (Keeps(at) && m_match.After(at) == None && m_match.After(m_now.Parent(at)) != None)
                Remove(m_now.Entry(at));
    }

    bool Keeps(int now) const { return m_keeps[static_cast<std::size_t>(now)]; }

    // True when the children of an entry are the same in both menus.
    bool IsSettled(int target) const {
        const int former = m_match.Before(target);
        if (former == None) return false;
        int now = m_now.FirstChild(former);
        int at = m_target.FirstChild(target);
        for (; now != None && at != None; now = m_now.NextSibling(now), at = m_target.NextSibling(at))
            if (m_match.After(now) != at) return false;
        return now == None && at == None;
    }

    void SetFields(int target) {
        const int former = m_match.Before(target);
        if (former == None || m_now.Content(former) == m_target.Content(target)) return;
        Make([&](Menu&) {
            return std::make_unique<FieldsChange>(EntryOf(target)->ID(),
                                                  EntryFields::ValuesOf(m_target.Entry(target)));
        });
    }

    void PlaceChildren(int parent) {
        const std::vector<int> children = m_target.Children(parent);
        Reorder(parent, children);
        const MenuEntry* before = nullptr;
        for (const int child : children) {
            Place(parent, child, before);
            before = EntryOf(child);
        }
    }

    // Gives the children that are here already their order, when more than one has to go elsewhere. The
    // others follow them.
    void Reorder(int parent, const std::vector<int>& children) {
        const MenuEntry& entry = *EntryOf(parent);
        m_stays.clear();
        if (entry.ChildCount() == 0) return;
        std::unordered_map<const MenuEntry*, int> places;
        for (const int child : children)
            if (EntryOf(child) != nullptr && EntryOf(child)->ParentMenu() == &entry)
                places.emplace(EntryOf(child), child);
        std::vector<int> order;
        std::vector<std::pair<int, std::int32_t>> counters;
        for (int i = 1; i <= entry.ChildCount(); ++i) {
            const MenuItem& item = entry.Children()->Item(i);
            const auto place = places.find(&item);
            counters.emplace_back(place != places.end() ? place->second : m_target.Count(), item.Counter());
            if (place != places.end()) order.push_back(place->second);
        }
        const std::vector<bool> stays = LongestRun(order);
        for (std::size_t i = 0; i < order.size(); ++i)
            if (stays[i]) m_stays.insert(order[i]);
        if (order.size() - m_stays.size() < 2) return;
        std::stable_sort(counters.begin(), counters.end(),
                         [](const auto& one, const auto& other) { return one.first < other.first; });
        std::vector<std::int32_t> all;
        all.reserve(counters.size());
        for (const auto& [place, counter] : counters)
            all.push_back(counter);
        Make([&](Menu&) { return std::make_unique<OrderChange>(entry.ID(), all); });
        for (const int at : order)
            m_stays.insert(at);
    }

    // Puts a child behind the one before it, which is in its place.
    void Place(int parent, int child, const MenuEntry* before) {
        const MenuEntry& entry = *EntryOf(parent);
        const int position = before != nullptr ? PositionOf(*before) + 1 : 1;
        if (EntryOf(child) == nullptr) return Insert(entry, child, position);
        const MenuEntry& moved = *EntryOf(child);
        const bool isHere = moved.ParentMenu() == &entry;
        if (isHere && m_stays.contains(child)) return;
        // Among the other children.
        const int place = isHere && PositionOf(moved) < position ? position - 1 : position;
        if (isHere && PositionOf(moved) == place) return;
        Make([&](Menu&) {
            return std::make_unique<MoveToChange>(moved.ID(), entry.ID(), place, MoveToChange::Parents::Any);
        });
    }

    static int PositionOf(const MenuEntry& entry) {
        return entry.ParentMenu()->Children()->PositionOf(static_cast<const MenuItem&>(entry));
    }

    // Inserts an added entry with all added entries below it. Those that come from elsewhere are moved there
    // later.
    void Insert(const MenuEntry& parent, int child, int position) {
        Make([&](Menu& menu) {
            const std::string parentId = parent.ID();
            auto item = menu.Find(parentId)->SubMenus().NewItem();
            std::vector<std::pair<int, MenuItem*>> open{{child, item.get()}};
            while (!open.empty()) {
                const auto [at, made] = open.back();
                open.pop_back();
                EntryFields::Copy(m_target.Entry(at), *made);
                EntryOf(at) = made;
                for (int below = m_target.FirstChild(at); below != None; below = m_target.NextSibling(below))
                    if (EntryOf(below) == nullptr)
                        open.emplace_back(below, &made->SubMenus().Append(made->SubMenus().NewItem()));
            }
            return std::make_unique<InsertChange>(std::move(item), parentId, position);
        });
    }

    MenuEditor& m_editor;
    const FlatMenu& m_now;
    const FlatMenu& m_target;
    const TreeMatch& m_match;
    std::vector<const MenuEntry*>
        m_entries; // of the open menu, by their index in the target; null until inserted
    std::vector<bool> m_keeps;
    std::unordered_set<int> m_stays; // the children of the current parent that are in their order
};

// A rough number of events.
std::size_t EventsBetween(const FlatMenu& now, const FlatMenu& target, const TreeMatch& match) {
    std::size_t events = 0;
    for (int at = 1; at < target.Count(); ++at) {
        const int former = match.Before(at);
        if (former == None || now.Content(former) != target.Content(at) ||
            match.After(now.Parent(former)) != target.Parent(at))
            ++events;
    }
    for (int at = 1; at < now.Count(); ++at)
        if (match.After(at) == None && match.After(now.Parent(at)) != None) ++events;
    return std::max<std::size_t>(events, 1);
}

} // namespace

bool UpdateOpenMenu(MenuEditor& editor, const Menu& target, ChangeName name) {
    if (!editor.IsOpen()) return false;
    const FlatMenu now(*editor.OpenMenu());
    const FlatMenu wanted(target);
    if (now.Subtree(0) == wanted.Subtree(0)) return false;
    const TreeMatch match(now, wanted);
    MenuEditor::Group group(editor, std::move(name), EventsBetween(now, wanted, match));
    Update(editor, now, wanted, match).Run();
    group.Commit();
    return true;
}

} // namespace nesk
