#pragma once

#include <string>

namespace nesk::bench {

class Table;

/// Measures the time from the start of the program to its first painted window, compared with a program with
/// an empty window.
/// @param folder  folder of both programs
void MeasureStart(Table& table, const std::string& folder);

} // namespace nesk::bench
