#pragma once

#include <string>
#include <string_view>

#include <wx/string.h>

class wxTextCtrl;
class wxWindow;

/// Helpers that every form uses.
namespace nesk::modUtilities {

/// Text of the program as the toolkit takes it.
wxString ToWx(std::string_view text);

/// Text of the toolkit as the program takes it.
std::string FromWx(const wxString& text);

/// The text of a message number, as the toolkit takes it.
wxString ResText(int id);

/// The common font set-up of a form: the form and all its controls get the face of the system's default font;
/// bold, italic and size stay, but for the smallest size that the user's locale asks for.
void SetFormFont(wxWindow& form);

/// Selects the whole text of a box when `select` is true.
void SelectAllText(wxTextCtrl& box, bool select);

} // namespace nesk::modUtilities
