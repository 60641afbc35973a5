#include "versions/LongestRun.h"

#include <algorithm>
#include <cstddef>

namespace nesk {

std::vector<bool> LongestRun(const std::vector<int>& numbers) {
    constexpr auto none = static_cast<std::size_t>(-1);
    std::vector<std::size_t> ends;   // the index of the smallest end of a run of each length
    std::vector<std::size_t> before; // the index of the number before each one in its run
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        const auto place =
            std::lower_bound(ends.begin(), ends.end(), numbers[at],
                             [&](std::size_t end, int number) { return numbers[end] < number; });
        before.push_back(place == ends.begin() ? none : *(place - 1));
        if (place == ends.end())
            ends.push_back(at);
        else
            *place = at;
    }
    std::vector<bool> belongs(numbers.size(), false);
    for (std::size_t at = ends.empty() ? none : ends.back(); at != none; at = before[at])
        belongs[at] = true;
    return belongs;
}

} // namespace nesk
