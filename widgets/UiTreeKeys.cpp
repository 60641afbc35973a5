#include "widgets/UiTreeKeys.h"

#include <utility>

#include <wx/dialog.h>
#include <wx/stattext.h>

namespace nesk {

namespace {

// The upper-case letter after the "&" of a label; 0 when there is no such letter.
int AccessKeyOf(const wxStaticText& label) {
    const wxString text = label.GetLabel();
    for (std::size_t i = 0; i + 1 < text.length(); ++i) {
        if (text[i] != '&') continue;
        if (text[i + 1] != '&') return static_cast<int>(wxToupper(text[i + 1]).GetValue());
        ++i;
    }
    return 0;
}

} // namespace

void BindAccessKey(wxDialog& dialog, const wxStaticText& label, wxWindow& tree) {
    dialog.Bind(wxEVT_CHAR_HOOK, [&label, &tree](wxKeyEvent& event) {
        const bool altAlone = event.GetModifiers() == wxMOD_ALT;
        if (altAlone && event.GetKeyCode() != 0 && event.GetKeyCode() == AccessKeyOf(label))
            tree.SetFocus();
        else
            event.Skip();
    });
}

void BindEnter(wxWindow& tree, std::function<void()> act) {
    tree.Bind(wxEVT_CHAR_HOOK, [act = std::move(act)](wxKeyEvent& event) {
        const int key = event.GetKeyCode();
        if (!event.HasAnyModifiers() && (key == WXK_RETURN || key == WXK_NUMPAD_ENTER))
            act();
        else
            event.Skip();
    });
}

} // namespace nesk
