#include "versions/Moves.h"

#include "versions/LongestRun.h"
#include "versions/TreeMatch.h"

#include <algorithm>
#include <cstddef>

namespace nesk {

std::vector<bool> MovesBetween(const FlatMenu& before, const FlatMenu& after, const TreeMatch& match) {
    std::vector<bool> moved(static_cast<std::size_t>(after.Count()), false);
    std::vector<int> stayed;
    std::vector<int> places;
    for (int at = 0; at < after.Count(); ++at) {
        const int former = match.Before(at);
        stayed.clear();
        places.clear();
        for (int child = after.FirstChild(at); child != FlatMenu::None; child = after.NextSibling(child)) {
            const int one = match.Before(child);
            if (one == FlatMenu::None) continue;
            if (former == FlatMenu::None || before.Parent(one) != former) {
                moved[static_cast<std::size_t>(child)] = true;
                continue;
            }
            stayed.push_back(child);
            places.push_back(one);
        }
        if (std::is_sorted(places.begin(), places.end())) continue;
        const std::vector<bool> stays = LongestRun(places);
        for (std::size_t i = 0; i < stayed.size(); ++i)
            if (!stays[i]) moved[static_cast<std::size_t>(stayed[i])] = true;
    }
    return moved;
}

} // namespace nesk
