#pragma once

#include <array>
#include <vector>

namespace nesk {

/// Finds the groups of nodes from which edges lead in circles: nodes of one group all reach each other.
/// @param edges  for each node the nodes to which it has edges; negative for none
/// @return for each node the number of its group. A node that is on no circle has a group of its own
std::vector<int> StrongGroups(const std::vector<std::array<int, 2>>& edges);

} // namespace nesk
