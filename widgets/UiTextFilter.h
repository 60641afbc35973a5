#pragma once

#include <cstddef>
#include <functional>
#include <string>

class wxTextCtrl;

namespace nesk {

/// What a text box lets in.
struct TextFilter {
    /// True when a typed character may go in.
    /// @param text   what the box holds
    /// @param start  position in characters of the selection or the caret
    /// @param end    position after the selection
    std::function<bool(char32_t character, const std::string& text, std::size_t start, std::size_t end)>
        accepts;

    /// What remains of a text that came in otherwise, as by the clipboard.
    std::function<std::string(const std::string& text)> clean;

    /// A refusal is heard.
    bool beep = false;
};

/// Keeps out of a text box what the filter refuses, however it is put in. A refused key changes nothing, not
/// even the selection.
void ApplyTextFilter(wxTextCtrl& box, TextFilter filter);

/// Selects the whole text of a box whenever it gains the focus, by whatever means.
void SelectAllOnFocus(wxTextCtrl& box);

} // namespace nesk
