#pragma once

namespace nesk::bench {

class Table;

/// Loading and saving the sample tree, against other ways to hold it.
/// @param items   size of the tree
/// @param rounds  how often all of it is measured; the medians count
void MeasureFiles(Table& table, int items, int rounds);

} // namespace nesk::bench
