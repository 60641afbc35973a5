#include "versions/MergeOrder.h"

#include "menu/MenuEntry.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <unordered_map>

namespace nesk {

namespace {

constexpr int None = MergeNodes::None;

std::vector<int> InBase(const MergeNodes& nodes, const std::vector<int>& children, int parent) {
    std::vector<int> result;
    std::copy_if(children.begin(), children.end(), std::back_inserter(result),
                 [&](int child) { return nodes.BaseParent(child) == parent; });
    return result;
}

// The children that only one side has here, in the runs in which they follow a shared child; those at the
// front follow None.
std::unordered_map<int, std::vector<int>> Runs(const std::vector<int>& children,
                                               const std::function<bool(int)>& isShared) {
    std::unordered_map<int, std::vector<int>> runs;
    int after = None;
    for (const int child : children) {
        if (isShared(child))
            after = child;
        else
            runs[after].push_back(child);
    }
    return runs;
}

} // namespace

// The children that both sides have here, in the order of one side.
std::vector<int> MergeOrder::Shared(Side side, int parent) const {
    std::vector<int> shared = m_nodes.Children(side, parent);
    const Side other = OtherOf(side);
    std::erase_if(shared, [&](int child) {
        return !m_nodes.IsIn(other, child) || m_nodes.Parent(other, child) != parent;
    });
    return shared;
}

MergeOrder::Order MergeOrder::Ordering(int parent) const {
    const std::vector<int> ours = Shared(Side::Ours, parent);
    const std::vector<int> theirs = Shared(Side::Theirs, parent);
    if (ours == theirs) return Order::Ours;
    const std::vector<int> ourBase = InBase(m_nodes, ours, parent);
    const std::vector<int> theirBase = InBase(m_nodes, theirs, parent);
    // Nodes of the base are numbered in its order.
    const bool oursAsBefore = std::is_sorted(ourBase.begin(), ourBase.end());
    const bool theirsAsBefore = std::is_sorted(theirBase.begin(), theirBase.end());
    if (oursAsBefore == theirsAsBefore) return Order::Unclear;
    return oursAsBefore ? Order::Theirs : Order::Ours;
}

const MenuEntry& MergeOrder::AnyEntry(int node) const {
    const MenuEntry* entry = m_nodes.BaseEntry(node);
    if (entry == nullptr) entry = m_nodes.Entry(Side::Ours, node);
    return entry != nullptr ? *entry : *m_nodes.Entry(Side::Theirs, node);
}

// True when the entries that our side put in a place stand before those of their side.
bool MergeOrder::ComesFirst(const std::vector<int>& ours, const std::vector<int>& theirs) const {
    const auto key = [this](Side side, int node) {
        // The nodes of the base first; of those that only one side has, no two have the same contents.
        return std::tuple(AnyEntry(node).Caption(), m_nodes.IsInBase(node) ? node : m_nodes.BaseCount(),
                          m_nodes.Menu(side).Content(m_nodes.At(side, node)));
    };
    return key(Side::Ours, ours.front()) < key(Side::Theirs, theirs.front());
}

std::vector<int> MergeOrder::Of(int parent, const std::function<bool(int)>& isHere, Side chosen) const {
    std::vector<int> ours = m_nodes.Children(Side::Ours, parent);
    std::vector<int> theirs = m_nodes.Children(Side::Theirs, parent);
    const auto isElsewhere = [&](int child) { return !isHere(child); };
    std::erase_if(ours, isElsewhere);
    std::erase_if(theirs, isElsewhere);
    if (theirs.empty() || ours == theirs) return ours;
    if (ours.empty()) return theirs;
    const auto isShared = [&](int child) {
        return m_nodes.IsInBoth(child) && m_nodes.Parent(Side::Ours, child) == parent &&
               m_nodes.Parent(Side::Theirs, child) == parent;
    };
    const Order order = Ordering(parent);
    const bool asTheirs = order == Order::Theirs || (order == Order::Unclear && chosen == Side::Theirs);
    const auto ourRuns = Runs(ours, isShared);
    const auto theirRuns = Runs(theirs, isShared);
    std::vector<int> merged;
    const auto addAfter = [&](int child) {
        const auto ourRun = ourRuns.find(child);
        const auto theirRun = theirRuns.find(child);
        const bool both = ourRun != ourRuns.end() && theirRun != theirRuns.end();
        const bool theirsFirst = both && !ComesFirst(ourRun->second, theirRun->second);
        const auto add = [&](const auto& runs, const auto& run) {
            if (run != runs.end()) merged.insert(merged.end(), run->second.begin(), run->second.end());
        };
        if (theirsFirst) add(theirRuns, theirRun);
        add(ourRuns, ourRun);
        if (!theirsFirst) add(theirRuns, theirRun);
    };
    addAfter(None);
    for (const int child : asTheirs ? theirs : ours) {
        if (!isShared(child)) continue;
        merged.push_back(child);
        addAfter(child);
    }
    return merged;
}

} // namespace nesk
