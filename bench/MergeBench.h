#pragma once

namespace nesk::bench {

class Table;

/// Measures merging three menus of 100,000 entries, beside loading one of them.
void MeasureMerge(Table& table);

} // namespace nesk::bench
