#pragma once

#include <string>

#include <wx/string.h>

class wxTextCtrl;

namespace nesk {

/// A text that a text box shows. A box may not hold all of it: none holds what follows a zero, and some hold
/// 65,534 characters at most. As long as the user has not edited the box, the text is the one it was given.
class ShownText {
public:
    /// Shows a text in a box, without an event.
    void Show(wxTextCtrl& box, const std::string& text);

    /// The text of the box as the user means it.
    std::string Of(const wxTextCtrl& box) const;

private:
    std::string m_text;
    wxString m_shown; // what the box made of it
};

} // namespace nesk
