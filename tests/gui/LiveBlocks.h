#pragma once

#include <cstddef>

namespace nesk::testing {

/// Number of live blocks allocated by operator new in the whole program, including those of wxWidgets. Memory
/// that C libraries allocate is not counted. Always 0 under AddressSanitizer, which has its own operators and
/// checks for leaks at the end of the program instead.
std::size_t LiveBlocks();

/// Returns whether LiveBlocks counts.
bool CountsLiveBlocks();

} // namespace nesk::testing
