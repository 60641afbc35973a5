#pragma once

namespace nesk::bench {

class Table;

/// Measures the preview: going to another submenu of 100 buttons, and scrolling through 1,000 buttons with
/// pictures.
void MeasurePreview(Table& table);

} // namespace nesk::bench
