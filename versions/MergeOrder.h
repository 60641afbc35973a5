#pragma once

#include "versions/MergeNodes.h"

#include <functional>
#include <vector>

namespace nesk {

/// The order of the entries of one submenu when two sides may have ordered them differently.
///
/// The entries that both sides have there get the order of the side that changed it; when both changed it,
/// one side has to be chosen. An entry that only one side has there follows the same entry as on that side.
/// When both sides put entries in one place, the captions decide which come first, so that the result does
/// not depend on which side is called ours.
class MergeOrder {
public:
    explicit MergeOrder(const MergeNodes& nodes) : m_nodes(nodes) {}

    /// True when both sides ordered the entries of a submenu differently.
    bool IsInConflict(int parent) const { return Ordering(parent) == Order::Unclear; }

    /// The merged order.
    /// @param isHere  whether a node gets this parent
    /// @param chosen  the side that decides in a conflict
    std::vector<int> Of(int parent, const std::function<bool(int)>& isHere, Side chosen) const;

private:
    enum class Order { Ours, Theirs, Unclear };

    Order Ordering(int parent) const;
    std::vector<int> Shared(Side side, int parent) const;
    bool ComesFirst(const std::vector<int>& ours, const std::vector<int>& theirs) const;
    const MenuEntry& AnyEntry(int node) const;

    const MergeNodes& m_nodes;
};

} // namespace nesk
