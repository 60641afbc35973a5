#pragma once

#include <cstddef>
#include <functional>
#include <string>

class wxTextCtrl;

namespace nesk {

/// Rules for the text that a text box accepts.
struct TextFilter {
    /// True when a typed character is accepted.
    /// @param text   the current text of the box
    /// @param start  position in characters of the caret or of the start of the selection
    /// @param end    position after the selection
    std::function<bool(char32_t character, const std::string& text, std::size_t start, std::size_t end)>
        accepts;

    /// The accepted part of a text that was not typed, for example of a pasted text.
    std::function<std::string(const std::string& text)> clean;

    /// Whether rejected input makes a sound.
    bool beep = false;
};

/// Makes a text box reject the input that the filter does not accept, in whatever way it is entered. A
/// rejected key changes neither the text nor the selection.
void ApplyTextFilter(wxTextCtrl& box, TextFilter filter);

/// Selects the whole text of a box whenever it gets the focus, by mouse, keyboard or program.
void SelectAllOnFocus(wxTextCtrl& box);

} // namespace nesk
