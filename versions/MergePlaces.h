#pragma once

#include "versions/MergeNodes.h"

#include <functional>
#include <vector>

namespace nesk {

/// The places of entries that both sides have: the submenu in which each is.
///
/// Moves of both sides may contain each other, for example when one side moves A into B and the other one B
/// into A. Then one side decides about all of these entries, so that no combination of choices makes a
/// circle. They are a knot, named by its first moved node.
class MergePlaces {
public:
    explicit MergePlaces(const MergeNodes& nodes);

    /// True when the sides moved an entry to different places, which is no part of a knot.
    bool IsInConflict(int node) const;

    /// The knots in conflict, in the order of their nodes.
    const std::vector<int>& Knots() const { return m_knots; }

    /// The parents that entries get.
    /// @param isThere   whether an entry is in the merged menu
    /// @param placeOf   the chosen side of an entry in conflict
    /// @param knotOf    the chosen side of a knot
    /// @return for each node its parent; None for the root and for those that are not there. An entry whose
    /// submenu
    ///         is not there stays where the other side has it, or goes to the next submenu above
    std::vector<int> Parents(const std::vector<bool>& isThere, const std::function<Side(int)>& placeOf,
                             const std::function<Side(int)>& knotOf) const;

private:
    static constexpr int None = MergeNodes::None;
    struct Knot {
        int size = 0;
        int name = None; // the first moved node
        bool moved[2] = {false, false};
    };

    void FindKnots();
    const Knot* KnotOf(int node) const;
    int Above(Side side, int node, const std::vector<bool>& isThere) const;

    const MergeNodes& m_nodes;
    std::vector<int> m_groups; // by node; empty when there is no knot
    std::vector<Knot> m_groupKnots;
    std::vector<int> m_knots;
};

} // namespace nesk
