#pragma once

#include <string>

#include <wx/string.h>

class wxTextCtrl;

namespace nesk {

/// A text shown in a text box that may not be able to hold all of it. No box holds the text after a zero, and
/// some hold at most 65,534 characters. While the user has not edited the box, the complete original text is
/// returned.
class ShownText {
public:
    /// Shows a text in a box without sending an event.
    void Show(wxTextCtrl& box, const std::string& text);

    /// The complete original text while the user has not edited the box; otherwise the text of the box.
    std::string Of(const wxTextCtrl& box) const;

private:
    std::string m_text;
    wxString m_shown; // the text that the box kept
};

} // namespace nesk
