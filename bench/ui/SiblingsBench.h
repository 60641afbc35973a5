#pragma once

namespace nesk::bench {

class Table;

/// Measures edits in the window among almost the maximum number of siblings, all of them in an expanded
/// entry.
void MeasureWindowSiblings(Table& table);

} // namespace nesk::bench
