#pragma once

#include "versions/FlatMenu.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace nesk {

/// The work of a TreeMatch: fills the two arrays step by step.
class Matcher {
public:
    Matcher(const FlatMenu& before, const FlatMenu& after, std::vector<int>& toAfter,
            std::vector<int>& toBefore);

    void Run();

private:
    using Key = std::uint64_t;
    enum class Others { ByOrder, OnlyUnique };

    bool IsFree(int before) const { return m_after[static_cast<std::size_t>(before)] == FlatMenu::None; }
    bool IsFreeAfter(int after) const { return m_before[static_cast<std::size_t>(after)] == FlatMenu::None; }

    void Match(int before, int after);
    void MatchSubtrees(int before, int after);
    void MatchBelow(int before, int after);
    void MatchChildren(int before, int after);
    void TrimEqualEnds(std::vector<int>& before, std::vector<int>& after);
    template <typename KeyOf, typename Pair>
    void PairByKey(const std::vector<int>& before, const std::vector<int>& after, KeyOf keyOf, Others others,
                   Pair pair);
    void MatchMovedSubtrees(Others others);
    void MatchByChildren();
    void MatchMovedEntries(Others others);
    void MatchEdited();
    void MatchPartly(int before, int after);
    void MatchEditedIn(int before, int after);
    void MatchGap(const std::vector<int>& before, const std::vector<int>& after);
    std::vector<int> FreeBefore() const;
    std::vector<int> FreeAfter() const;

    const FlatMenu& m_one;
    const FlatMenu& m_other;
    std::vector<int>& m_after;
    std::vector<int>& m_before;
    std::vector<std::pair<int, int>> m_open; // matched entries whose children wait for their turn
};

} // namespace nesk
