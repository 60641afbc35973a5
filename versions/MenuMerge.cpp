#include "versions/MenuMerge.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "versions/ChildCount.h"
#include "versions/EntryFields.h"
#include "versions/MergeOrder.h"
#include "versions/MergePlaces.h"
#include "versions/MergeQuestions.h"
#include "versions/MergeRemovals.h"

#include <algorithm>
#include <string>
#include <utility>

namespace nesk {

using Kind = MergeConflict::Kind;

class MenuMerge::Work {
public:
    Work(const Menu& base, const Menu& ours, const Menu& theirs)
        : m_rootDirectory(ours.RootDirectory())
        , m_base(base)
        , m_ours(ours)
        , m_theirs(theirs)
        , m_nodes(m_base, m_ours, m_theirs)
        , m_removals(m_nodes)
        , m_places(m_nodes)
        , m_order(m_nodes) {
        FindConflicts();
    }

    MergeQuestions questions;

    std::unique_ptr<Menu> Result() const {
        const std::vector<bool> isThere = Presence();
        const std::vector<int> parents = m_places.Parents(
            isThere, [this](int node) { return questions.Chosen(Kind::Place, node); },
            [this](int knot) { return questions.Chosen(Kind::Nesting, knot); });
        const std::vector<std::vector<int>> strays = Strays(parents);
        auto menu = std::make_unique<Menu>();
        menu->Initialize(m_rootDirectory);
        SetFields(0, *menu);
        std::vector<std::pair<int, MenuEntry*>> open{{0, menu.get()}};
        while (!open.empty()) {
            const int node = open.back().first;
            MenuEntry* const entry = open.back().second;
            open.pop_back();
            std::vector<int> children = m_order.Of(
                node, [&](int child) { return parents[static_cast<std::size_t>(child)] == node; },
                questions.Chosen(Kind::Order, node));
            if (!strays.empty()) {
                const std::vector<int>& more = strays[static_cast<std::size_t>(node)];
                children.insert(children.end(), more.begin(), more.end());
            }
            CheckChildCount(*entry, children.size(), "MenuMerge.Result");
            for (const int child : children) {
                auto item = MenuItem::Create(*entry);
                SetFields(child, *item);
                MenuItem& added = entry->SubMenus().Append(std::move(item));
                if (MayHaveChildren(child, strays)) open.emplace_back(child, &added);
            }
        }
        return menu;
    }

private:
    bool MayHaveChildren(int node, const std::vector<std::vector<int>>& strays) const {
        const auto hasChildren = [&](Side side) {
            const int at = m_nodes.At(side, node);
            return at != MergeNodes::None && m_nodes.Menu(side).FirstChild(at) != MergeNodes::None;
        };
        return hasChildren(Side::Ours) || hasChildren(Side::Theirs) ||
               (!strays.empty() && !strays[static_cast<std::size_t>(node)].empty());
    }

    void FindConflicts() {
        auto knot = m_places.Knots().begin();
        for (int node = 0; node < m_nodes.Count(); ++node) {
            if (m_removals.Of(node) == node && m_removals.IsInConflict(node))
                questions.Add(m_nodes, Kind::Removal, node);
            if (m_places.IsInConflict(node)) questions.Add(m_nodes, Kind::Place, node);
            if (knot != m_places.Knots().end() && *knot == node) {
                questions.Add(m_nodes, Kind::Nesting, node);
                ++knot;
            }
            if (!m_nodes.IsInBoth(node)) continue;
            FindFieldConflicts(node);
            if (OrderMayDiffer(node) && m_order.IsInConflict(node)) questions.Add(m_nodes, Kind::Order, node);
        }
    }

    void FindFieldConflicts(int node) {
        if (!m_nodes.IsInBase(node) || !BothEdited(node)) return;
        for (const MenuKey field : EntryFields::All)
            if (IsInConflict(node, field)) questions.Add(m_nodes, Kind::Field, node, field);
    }

    // A quick look at the children. Their contents do not tell, because like entries may be different nodes.
    bool OrderMayDiffer(int node) const {
        int ours = m_ours.FirstChild(m_nodes.At(Side::Ours, node));
        int theirs = m_theirs.FirstChild(m_nodes.At(Side::Theirs, node));
        while (ours != MergeNodes::None && theirs != MergeNodes::None) {
            if (m_nodes.NodeOf(Side::Ours, ours) != m_nodes.NodeOf(Side::Theirs, theirs)) return true;
            ours = m_ours.NextSibling(ours);
            theirs = m_theirs.NextSibling(theirs);
        }
        return false;
    }

    // True when both sides edited fields of an entry of the base, and not in the same way.
    bool BothEdited(int node) const {
        const auto content = m_base.Content(node);
        const auto ours = m_ours.Content(m_nodes.At(Side::Ours, node));
        const auto theirs = m_theirs.Content(m_nodes.At(Side::Theirs, node));
        return ours != content && theirs != content && ours != theirs;
    }

    bool IsInConflict(int node, MenuKey field) const {
        const MenuEntry& base = m_base.Entry(node);
        const MenuEntry& ours = *m_nodes.Entry(Side::Ours, node);
        const MenuEntry& theirs = *m_nodes.Entry(Side::Theirs, node);
        return !EntryFields::IsSame(ours, base, field) && !EntryFields::IsSame(theirs, base, field) &&
               !EntryFields::IsSame(ours, theirs, field);
    }

    // Which nodes are in the merged menu.
    std::vector<bool> Presence() const {
        std::vector<bool> isThere(static_cast<std::size_t>(m_nodes.Count()), false);
        for (int node = 0; node < m_nodes.Count(); ++node) {
            const auto index = static_cast<std::size_t>(node);
            const int removal = m_removals.Of(node);
            if (m_nodes.IsInBoth(node))
                isThere[index] = true;
            else if (removal != MergeNodes::None)
                isThere[index] = m_removals.IsInConflict(removal) &&
                                 m_nodes.IsIn(questions.Chosen(Kind::Removal, removal), node);
        }
        // What a side added to something that is removed is removed with it.
        for (const Side side : Sides) {
            const FlatMenu& menu = m_nodes.Menu(side);
            for (int at = 1; at < menu.Count(); ++at) {
                const int node = m_nodes.NodeOf(side, at);
                if (m_nodes.IsInBase(node) || m_nodes.IsInBoth(node)) continue;
                const int parent = m_nodes.NodeOf(side, menu.Parent(at));
                isThere[static_cast<std::size_t>(node)] = isThere[static_cast<std::size_t>(parent)];
            }
        }
        return isThere;
    }

    // The entries below each node that have it as their parent on neither side. Empty when there are none at
    // all.
    std::vector<std::vector<int>> Strays(const std::vector<int>& parents) const {
        std::vector<std::vector<int>> strays;
        for (int node = 1; node < m_nodes.Count(); ++node) {
            const int parent = parents[static_cast<std::size_t>(node)];
            if (parent == MergeNodes::None || parent == m_nodes.Parent(Side::Ours, node) ||
                parent == m_nodes.Parent(Side::Theirs, node))
                continue;
            if (strays.empty()) strays.resize(static_cast<std::size_t>(m_nodes.Count()));
            strays[static_cast<std::size_t>(parent)].push_back(node);
        }
        return strays;
    }

    void SetFields(int node, MenuEntry& entry) const {
        const MenuEntry* ours = m_nodes.Entry(Side::Ours, node);
        const MenuEntry* theirs = m_nodes.Entry(Side::Theirs, node);
        if (ours == nullptr || theirs == nullptr || !m_nodes.IsInBase(node))
            return EntryFields::Copy(ours != nullptr ? *ours : *theirs, entry);
        if (!BothEdited(node)) {
            const bool asTheirs = m_ours.Content(m_nodes.At(Side::Ours, node)) == m_base.Content(node);
            return EntryFields::Copy(asTheirs ? *theirs : *ours, entry);
        }
        const MenuEntry& base = m_base.Entry(node);
        EntryFields::Copy(*ours, entry);
        for (const MenuKey field : EntryFields::All) {
            const bool asTheirs = IsInConflict(node, field)
                                      ? questions.Chosen(Kind::Field, node, field) == Side::Theirs
                                      : EntryFields::IsSame(*ours, base, field);
            if (asTheirs) EntryFields::Set(entry, field, EntryFields::ValueOf(*theirs, field));
        }
    }

    std::string m_rootDirectory;
    FlatMenu m_base;
    FlatMenu m_ours;
    FlatMenu m_theirs;
    MergeNodes m_nodes;
    MergeRemovals m_removals;
    MergePlaces m_places;
    MergeOrder m_order;
};

MenuMerge::MenuMerge(const Menu& base, const Menu& ours, const Menu& theirs)
    : m_work(std::make_unique<Work>(base, ours, theirs)) {}

MenuMerge::~MenuMerge() = default;

const std::vector<MergeConflict>& MenuMerge::Conflicts() const {
    return m_work->questions.All();
}

void MenuMerge::Choose(std::size_t index, Side side) {
    m_work->questions.All().at(index).chosen = side;
}

std::unique_ptr<Menu> MenuMerge::Result() const {
    return m_work->Result();
}

} // namespace nesk
