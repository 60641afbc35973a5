#pragma once

#include "versions/FlatMenu.h"
#include "versions/TreeMatch.h"

#include <array>
#include <cstddef>
#include <vector>

namespace nesk {

/// One of the two menus that are merged.
enum class Side { Ours, Theirs };

inline constexpr std::array Sides{Side::Ours, Side::Theirs};

constexpr Side OtherOf(Side side) {
    return side == Side::Ours ? Side::Theirs : Side::Ours;
}

/// The entries of three menus together: the base from which two sides were edited, and the sides. A node is
/// one entry wherever it exists. The nodes of the base come first, numbered as in the base; then those that a
/// side added. An entry that both sides added alike to the same submenu is one node.
class MergeNodes {
public:
    static constexpr int None = FlatMenu::None;

    MergeNodes(const FlatMenu& base, const FlatMenu& ours, const FlatMenu& theirs);

    int Count() const { return static_cast<int>(m_at[0].size()); }
    int BaseCount() const { return m_base.Count(); }
    bool IsInBase(int node) const { return node < BaseCount(); }

    /// The index of a node in the menu of a side; None where it does not exist.
    int At(Side side, int node) const { return m_at[Index(side)][static_cast<std::size_t>(node)]; }
    bool IsIn(Side side, int node) const { return At(side, node) != None; }
    bool IsInBoth(int node) const { return IsIn(Side::Ours, node) && IsIn(Side::Theirs, node); }
    bool IsInAll(int node) const { return IsInBase(node) && IsInBoth(node); }

    /// The node of an entry of a side.
    int NodeOf(Side side, int at) const { return m_nodes[Index(side)][static_cast<std::size_t>(at)]; }

    /// The node above in a side or in the base; None for the root and where the node does not exist.
    int Parent(Side side, int node) const;
    int BaseParent(int node) const { return IsInBase(node) ? m_base.Parent(node) : None; }

    /// True when a side gave a node of the base another parent.
    bool IsMoved(Side side, int node) const { return Parent(side, node) != BaseParent(node); }

    /// The children of a node in a side, in their order; none where it does not exist.
    std::vector<int> Children(Side side, int node) const;

    const FlatMenu& Base() const { return m_base; }
    const FlatMenu& Menu(Side side) const { return *m_menus[Index(side)]; }

    /// The entry of a node in a side or in the base; null where it does not exist.
    const MenuEntry* Entry(Side side, int node) const;
    const MenuEntry* BaseEntry(int node) const { return IsInBase(node) ? &m_base.Entry(node) : nullptr; }

private:
    static constexpr std::size_t Index(Side side) { return static_cast<std::size_t>(side); }
    int Add();
    void Place(Side side, int at, int node);
    void TakeMatched(Side side, const TreeMatch& match);
    void TakeAdded();
    void TakeAddedBelow(const std::vector<int>& ours, const std::vector<int>& theirs);
    std::vector<int> NewChildren(Side side, int node) const;

    const FlatMenu& m_base;
    std::array<const FlatMenu*, 2> m_menus;
    std::array<std::vector<int>, 2> m_at;    // by node
    std::array<std::vector<int>, 2> m_nodes; // by entry
};

} // namespace nesk
