#pragma once

namespace nesk::bench {

class Table;

/// Measures finding and replacing in the window with 100,000 entries.
void MeasureFind(Table& table);

} // namespace nesk::bench
