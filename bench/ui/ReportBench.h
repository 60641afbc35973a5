#pragma once

namespace nesk::bench {

class Table;

/// Measures how long the report about a menu of 1,000 buttons takes, in the window and in a saved file. Each
/// button has a picture and a preview of its own.
void MeasureReport(Table& table);

} // namespace nesk::bench
