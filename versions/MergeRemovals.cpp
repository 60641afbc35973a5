#include "versions/MergeRemovals.h"

#include <algorithm>

namespace nesk {

MergeRemovals::MergeRemovals(const MergeNodes& nodes)
    : m_nodes(nodes)
    , m_removals(static_cast<std::size_t>(nodes.Count()), MergeNodes::None)
    , m_conflicts(static_cast<std::size_t>(nodes.Count()), false) {
    // Parents come first.
    for (int node = 1; node < nodes.BaseCount(); ++node) {
        const bool inOurs = nodes.IsIn(Side::Ours, node);
        if (inOurs == nodes.IsIn(Side::Theirs, node)) continue;
        const Side left = inOurs ? Side::Ours : Side::Theirs;
        const int parent = nodes.BaseParent(node);
        const bool isBelow =
            Of(parent) != MergeNodes::None && nodes.IsIn(left, parent) && !nodes.IsMoved(left, node);
        const int removal = isBelow ? Of(parent) : node;
        m_removals[static_cast<std::size_t>(node)] = removal;
        if (IsTouched(left, node)) m_conflicts[static_cast<std::size_t>(removal)] = true;
    }
}

// True when a side did something with a node that the other side removed.
bool MergeRemovals::IsTouched(Side side, int node) const {
    if (m_nodes.IsMoved(side, node)) return true;
    if (m_nodes.Menu(side).Content(m_nodes.At(side, node)) != m_nodes.Base().Content(node)) return true;
    const std::vector<int> children = m_nodes.Children(side, node);
    return std::any_of(children.begin(), children.end(),
                       [&](int child) { return m_nodes.BaseParent(child) != node; });
}

} // namespace nesk
