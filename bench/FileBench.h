#pragma once

namespace nesk::bench {

class Table;

/// Measures loading and saving the sample tree, compared with other representations of it.
/// @param items   size of the tree
/// @param rounds  number of repetitions; the medians count
void MeasureFiles(Table& table, int items, int rounds);

} // namespace nesk::bench
