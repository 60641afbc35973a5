#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

class wxTextCtrl;
class wxWindow;

/// Helpers for all forms.
namespace nesk::modUtilities {

/// Converts text of the program (UTF-8) to wx text.
wxString ToWx(std::string_view text);

/// Converts wx text to text of the program (UTF-8).
std::string FromWx(const wxString& text);

/// The text of a message number as wx text.
wxString ResText(int id);

/// Sets the common font of a form: the form and all its controls get the face of the system's default font.
/// Bold and italic stay. The size stays too, but is raised to the minimum size for the user's locale.
void SetFormFont(wxWindow& form);

/// Selects the whole text of a box when `select` is true.
void SelectAllText(wxTextCtrl& box, bool select);

} // namespace nesk::modUtilities
