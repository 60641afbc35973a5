#pragma once

namespace nesk::bench {

class Table;

/// Edits in the window among about as many siblings as there may be, all of them expanded.
void MeasureWindowSiblings(Table& table);

} // namespace nesk::bench
