#pragma once

namespace nesk::bench {

class Table;

/// Opening a large menu beside filling a bare tree control, and what follows an edit in it.
void MeasureOpening(Table& table);

} // namespace nesk::bench
