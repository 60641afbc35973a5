#include "versions/MergePlaces.h"

#include "versions/StrongGroups.h"

#include <algorithm>
#include <array>

namespace nesk {

MergePlaces::MergePlaces(const MergeNodes& nodes) : m_nodes(nodes) {
    bool moved[2] = {false, false};
    for (int node = 1; node < nodes.BaseCount(); ++node)
        for (const Side side : Sides)
            if (nodes.IsIn(side, node) && nodes.IsMoved(side, node)) moved[static_cast<int>(side)] = true;
    // The tree of one side has no circles, so it takes moves of both sides to make one.
    if (moved[0] && moved[1]) FindKnots();
}

void MergePlaces::FindKnots() {
    std::vector<std::array<int, 2>> edges;
    edges.reserve(static_cast<std::size_t>(m_nodes.Count()));
    for (int node = 0; node < m_nodes.Count(); ++node)
        edges.push_back({m_nodes.Parent(Side::Ours, node), m_nodes.Parent(Side::Theirs, node)});
    m_groups = StrongGroups(edges);
    m_groupKnots.resize(static_cast<std::size_t>(*std::max_element(m_groups.begin(), m_groups.end())) + 1);
    for (int node = 0; node < m_nodes.Count(); ++node) {
        Knot& knot = m_groupKnots[static_cast<std::size_t>(m_groups[static_cast<std::size_t>(node)])];
        ++knot.size;
        if (!m_nodes.IsInAll(node)) continue;
        for (const Side side : Sides) {
            if (!m_nodes.IsMoved(side, node)) continue;
            knot.moved[static_cast<int>(side)] = true;
            if (knot.name == None) knot.name = node;
        }
    }
    for (const Knot& knot : m_groupKnots)
        if (knot.size > 1 && knot.moved[0] && knot.moved[1]) m_knots.push_back(knot.name);
    std::sort(m_knots.begin(), m_knots.end());
}

const MergePlaces::Knot* MergePlaces::KnotOf(int node) const {
    if (m_groups.empty()) return nullptr;
    const Knot& knot = m_groupKnots[static_cast<std::size_t>(m_groups[static_cast<std::size_t>(node)])];
    return knot.size > 1 ? &knot : nullptr;
}

bool MergePlaces::IsInConflict(int node) const {
    return m_nodes.IsInAll(node) && m_nodes.IsMoved(Side::Ours, node) &&
           m_nodes.IsMoved(Side::Theirs, node) &&
           m_nodes.Parent(Side::Ours, node) != m_nodes.Parent(Side::Theirs, node) && KnotOf(node) == nullptr;
}

// The next entry above in a side that is there.
int MergePlaces::Above(Side side, int node, const std::vector<bool>& isThere) const {
    int parent = m_nodes.Parent(side, node);
    while (!isThere[static_cast<std::size_t>(parent)])
        parent = m_nodes.Parent(side, parent);
    return parent;
}

std::vector<int> MergePlaces::Parents(const std::vector<bool>& isThere,
                                      const std::function<Side(int)>& placeOf,
                                      const std::function<Side(int)>& knotOf) const {
    std::vector<int> parents(static_cast<std::size_t>(m_nodes.Count()), None);
    for (int node = 1; node < m_nodes.Count(); ++node) {
        if (!isThere[static_cast<std::size_t>(node)]) continue;
        int& parent = parents[static_cast<std::size_t>(node)];
        if (!m_nodes.IsInBoth(node)) {
            parent = Above(m_nodes.IsIn(Side::Ours, node) ? Side::Ours : Side::Theirs, node, isThere);
            continue;
        }
        const Knot* knot = KnotOf(node);
        Side side = Side::Ours;
        if (knot != nullptr && knot->moved[0] && knot->moved[1])
            side = knotOf(knot->name);
        else if (IsInConflict(node))
            side = placeOf(node);
        else if (knot != nullptr ? knot->moved[1] : !m_nodes.IsMoved(Side::Ours, node))
            side = Side::Theirs;
        parent = m_nodes.Parent(side, node);
        if (isThere[static_cast<std::size_t>(parent)]) continue;
        // Within a knot the place of the other side could make a circle.
        const int other = m_nodes.Parent(OtherOf(side), node);
        parent =
            knot == nullptr && isThere[static_cast<std::size_t>(other)] ? other : Above(side, node, isThere);
    }
    return parents;
}

} // namespace nesk
