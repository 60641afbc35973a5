#pragma once

#include <string>

namespace nesk {

class FormMain;

} // namespace nesk

namespace nesk::bench {

// Each function changes an entry's caption as a user does: by the command, in the text box, with Enter. It
// first selects the entry, which is not measured. It ends the program with a message when the caption is not
// the new one afterwards. Times are in milliseconds and include the resulting updates of the windows.

/// Types the caption character by character.
/// @param caption  must contain ASCII characters only
/// @return time of the slowest character
double TypeCaption(FormMain& window, const std::string& id, const std::string& caption);

/// Sets the text of the text box at once.
/// @return total time of the command, the text and Enter
double RenameInPlace(FormMain& window, const std::string& id, const std::string& caption);

} // namespace nesk::bench
