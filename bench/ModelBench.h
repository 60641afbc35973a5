#pragma once

namespace nesk::bench {

class Table;

/// Finding entries in a large tree, edits among the most siblings there may be, registering many histories.
void MeasureModel(Table& table);

} // namespace nesk::bench
