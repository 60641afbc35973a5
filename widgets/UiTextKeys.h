#pragma once

class wxKeyEvent;

namespace nesk {

/// What a key means while a text box has the focus that is not in a dialog: the window has commands for
/// entries on the same keys.
enum class TextKey {
    Text,    ///< edits the text or moves in it
    Undo,    ///< undoes the typing
    Redo,    ///< makes again what was undone
    Nothing, ///< a command of an entry, which must not happen while a text is typed
    Command  ///< a command of the window
};

TextKey TextKeyOf(const wxKeyEvent& event);

} // namespace nesk
