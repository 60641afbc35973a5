#pragma once

namespace nesk::bench {

class Table;

/// Measures opening a large menu, compared with filling a bare tree control, and the updates after an edit in
/// the menu.
void MeasureOpening(Table& table);

} // namespace nesk::bench
