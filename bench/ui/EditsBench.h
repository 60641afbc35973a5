#pragma once

namespace nesk::bench {

class Table;

/// Measures undo, redo, dropping and pasting in a window with 100,000 entries, removing 10,000 selected
/// entries and bringing them back, and the memory of 10,000 undo steps.
void MeasureEdits(Table& table);

} // namespace nesk::bench
