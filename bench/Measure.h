#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace nesk::bench {

/// The measured costs of one run.
struct Figures {
    double seconds = 0;
    double bytes = 0; ///< growth of the process's memory to its peak
};

/// Runs `action` in a forked process, which starts with the current memory of this process, so that runs do
/// not affect each other. Ends the program with a message when the process fails.
/// @param prepare  called first in the forked process; not measured
/// @param memory   bytes of each page size (large and small) to make available before the process starts
Figures Measure(const std::function<void()>& prepare, const std::function<void()>& action,
                std::size_t memory);

/// The median of one or more numbers.
double Median(std::vector<double> numbers);

} // namespace nesk::bench
