#pragma once

#include "versions/MergeNodes.h"

#include <vector>

namespace nesk {

/// The entries that one side removed and the other side still has. What was removed together, a submenu with
/// what was below it, is one removal, named by its uppermost node.
///
/// A removal is in conflict when the other side edited, moved or filled something in it. An entry that the
/// other side took out of what was removed is a removal of its own.
class MergeRemovals {
public:
    explicit MergeRemovals(const MergeNodes& nodes);

    /// The removal to which a node belongs; MergeNodes::None for a node that no side or both sides removed.
    int Of(int node) const { return m_removals[static_cast<std::size_t>(node)]; }

    /// True when a removal is in conflict.
    bool IsInConflict(int removal) const { return m_conflicts[static_cast<std::size_t>(removal)]; }

private:
    bool IsTouched(Side side, int node) const;

    const MergeNodes& m_nodes;
    std::vector<int> m_removals;
    std::vector<bool> m_conflicts;
};

} // namespace nesk
