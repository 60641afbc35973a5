#pragma once

#include <string>
#include <vector>

class wxWindow;

namespace nesk::testing {

/// What of a visible window cannot be read or reached: captions that are cut, controls that overlap or stand
/// outside of their window, column headings that do not fit. One text for each, with the name of the control.
std::vector<std::string> LayoutProblems(const wxWindow& window);

} // namespace nesk::testing
