#pragma once

#include <string>

namespace nesk::bench {

class Table;

/// How long the program takes from its start to its first painted window, beside a program with an empty one.
/// @param folder  of the programs
void MeasureStart(Table& table, const std::string& folder);

} // namespace nesk::bench
