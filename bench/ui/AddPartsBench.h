#pragma once

namespace nesk::bench {

class Table;

/// Measures adding the part programs of a repository to the menu, beside reading the repository.
void MeasureAddParts(Table& table);

} // namespace nesk::bench
