#pragma once

namespace nesk::bench {

class Table;

/// Measures what an edit costs without and with a journal of the unsaved changes.
void MeasureJournal(Table& table);

} // namespace nesk::bench
