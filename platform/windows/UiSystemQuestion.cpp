#include "platform/SystemQuestion.h"

#include <wx/msgdlg.h>

namespace nesk::platform {

std::optional<bool> AskYesOrNo(wxWindow* parent, const std::string& text, const std::string& title) {
    // The system's box with only Yes and No ignores Escape and has no close box.
    wxMessageDialog dialog(parent, wxString::FromUTF8(text), wxString::FromUTF8(title),
                           wxYES_NO | wxICON_QUESTION);
    switch (dialog.ShowModal()) {
    case wxID_YES: return true;
    case wxID_NO: return false;
    default: return std::nullopt;
    }
}

} // namespace nesk::platform
