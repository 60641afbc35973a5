#include "widgets/FormReadOnlyText.h"

#include <wx/settings.h>

namespace nesk {

FormReadOnlyText::FormReadOnlyText(wxWindow* parent, const char* name, int width) {
    Create(parent, wxID_ANY, "", wxDefaultPosition, parent->FromDIP(wxSize(width, -1)), wxTE_READONLY,
           wxDefaultValidator, name);
    SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
    SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
    Bind(wxEVT_TEXT, [this](wxCommandEvent& event) {
        event.Skip();
        SetToolTip(GetValue());
    });
}

void FormReadOnlyText::KeepEndInView() {
    const auto showEnd = [this](wxEvent& event) {
        event.Skip();
        // The box scrolls to the cursor.
        SetInsertionPointEnd();
    };
    Bind(wxEVT_TEXT, showEnd);
    // The visible part of the text is known only when the box has its size.
    Bind(wxEVT_SIZE, showEnd);
}

} // namespace nesk
