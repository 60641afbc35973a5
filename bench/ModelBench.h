#pragma once

namespace nesk::bench {

class Table;

/// Measures finding entries in a large tree, edits among the maximum number of siblings, and registering many
/// histories.
void MeasureModel(Table& table);

} // namespace nesk::bench
