#pragma once

#include "menu/MenuKeys.h"

#include <cstddef>
#include <string>
#include <vector>

namespace nesk {

class FlatMenu;
class Menu;
class MenuEntry;
class TreeMatch;

/// A field that differs.
struct FieldDifference {
    MenuKey field;
    std::string before;
    std::string after;
};

/// The difference of two menus: what was added, removed, moved and changed on the way from one to the other.
/// It refers to both menus, which must outlive it and must not change.
class MenuDiff {
public:
    /// No node.
    static constexpr int None = -1;

    /// An affected entry, or a submenu that leads to affected entries.
    struct Node {
        const MenuEntry* before = nullptr; ///< null for an entry that was added
        const MenuEntry* after = nullptr;  ///< null for an entry that was removed
        int parent = None;                 ///< the node above; None for the root
        int end = 0;                       ///< one past the last node below
        bool isMoved = false;              ///< it has another parent, or another place among its siblings
        bool isInOther = false;            ///< it moved to another parent
        std::vector<FieldDifference> fields;

        bool IsAdded() const { return before == nullptr; }
        bool IsRemoved() const { return after == nullptr; }
        bool IsChanged() const { return !fields.empty(); }
        /// False for a submenu that only leads to others.
        bool IsAffected() const { return IsAdded() || IsRemoved() || isMoved || IsChanged(); }
        /// The entry to show: the new one, or the removed one.
        const MenuEntry& Shown() const { return after != nullptr ? *after : *before; }
    };

    MenuDiff(const Menu& before, const Menu& after);

    /// The nodes as a tree, parents before what is below them, in the order of the new menu. Removed entries
    /// stand where they were. The first node is the root. Empty when there is no difference.
    const std::vector<Node>& Nodes() const { return m_nodes; }

    bool IsEmpty() const { return m_nodes.empty(); }

    /// Numbers of entries. A removed submenu counts with all entries below it that were removed; an added one
    /// too.
    std::size_t Added() const { return m_added; }
    std::size_t Removed() const { return m_removed; }
    std::size_t Moved() const { return m_moved; }
    std::size_t Changed() const { return m_changed; }

    const Menu& Before() const { return m_before; }
    const Menu& After() const { return m_after; }

private:
    void Build(const FlatMenu& before, const FlatMenu& after, const TreeMatch& match);

    const Menu& m_before;
    const Menu& m_after;
    std::vector<Node> m_nodes;
    std::size_t m_added = 0;
    std::size_t m_removed = 0;
    std::size_t m_moved = 0;
    std::size_t m_changed = 0;
};

} // namespace nesk
