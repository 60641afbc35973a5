#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace nesk::bench {

/// What one run of something took.
struct Figures {
    double seconds = 0;
    double bytes = 0; ///< by which the memory of the process grew at its peak
};

/// Runs `action` in a process of its own, which starts with the memory that this one has now: no run finds
/// what another has left. Ends the program with a message when the process fails.
/// @param prepare  called before, in that process and not measured
/// @param memory   bytes of each kind of page that are ready when the process starts
Figures Measure(const std::function<void()>& prepare, const std::function<void()>& action,
                std::size_t memory);

/// The median of some numbers, of which there must be one at least.
double Median(std::vector<double> numbers);

} // namespace nesk::bench
