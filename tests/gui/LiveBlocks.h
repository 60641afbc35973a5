#pragma once

#include <cstddef>

namespace nesk::testing {

/// How many objects made by new are alive in the whole program, those of the toolkit included; memory that C
/// libraries take is not counted. Under AddressSanitizer, which has its own operators, always 0: there the
/// check for leaks at the end of the program takes the place of this one.
std::size_t LiveBlocks();

/// Whether LiveBlocks counts.
bool CountsLiveBlocks();

} // namespace nesk::testing
