#include "versions/StrongGroups.h"

#include <algorithm>
#include <cstddef>

namespace nesk {

// Tarjan's algorithm with a stack of its own, because the edges may lead as deep as a tree.
std::vector<int> StrongGroups(const std::vector<std::array<int, 2>>& edges) {
    constexpr int none = -1;
    struct Visit {
        int node;
        std::size_t nextEdge;
    };
    const std::size_t count = edges.size();
    std::vector<int> number(count, none); // in the order of the first visit
    std::vector<int> lowest(count, none); // the lowest number that is reached
    std::vector<int> group(count, none);
    std::vector<int> pending; // visited nodes without a group
    std::vector<Visit> visits;
    int visited = 0;
    int groups = 0;
    const auto at = [](auto& values, int node) -> auto& {
        return values[static_cast<std::size_t>(node)];
    };
    const auto begin = [&](int node) {
        at(number, node) = at(lowest, node) = visited++;
        pending.push_back(node);
        visits.push_back({node, 0});
    };
    const auto end = [&](int node) {
        if (at(lowest, node) != at(number, node)) return;
        int member = none;
        do {
            member = pending.back();
            pending.pop_back();
            at(group, member) = groups;
        } while (member != node);
        ++groups;
    };
    for (int start = 0; start < static_cast<int>(count); ++start) {
        if (at(number, start) != none) continue;
        begin(start);
        while (!visits.empty()) {
            Visit& visit = visits.back();
            const int node = visit.node;
            if (visit.nextEdge == edges.front().size()) {
                visits.pop_back();
                end(node);
                if (!visits.empty()) {
                    int& above = at(lowest, visits.back().node);
                    above = std::min(above, at(lowest, node));
                }
                continue;
            }
            const int next = at(edges, node)[visit.nextEdge++];
            if (next < 0) continue;
            if (at(number, next) == none)
                begin(next);
            else if (at(group, next) == none)
                at(lowest, node) = std::min(at(lowest, node), at(number, next));
        }
    }
    return group;
}

} // namespace nesk
