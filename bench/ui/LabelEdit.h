#pragma once

#include <string>

namespace nesk {

class FormMain;

} // namespace nesk

namespace nesk::bench {

// An entry gets another caption as the user gives it one: by the command, in the text box, with Enter. Both
// select the entry first, which is not measured, and end the program with a message when it is not called so
// afterwards. Times are in milliseconds, with what follows in the windows.

/// Types the caption.
/// @param caption  must hold ASCII characters alone
/// @return what the slowest character took
double TypeCaption(FormMain& window, const std::string& id, const std::string& caption);

/// Puts the caption into the text box at once.
/// @return what the command, the text and Enter took together
double RenameInPlace(FormMain& window, const std::string& id, const std::string& caption);

} // namespace nesk::bench
