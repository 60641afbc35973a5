#include "platform/SystemQuestion.h"

#include <wx/msgdlg.h>

#include <wx/generic/msgdlgg.h>
#include <wx/modalhook.h>

namespace nesk::platform {

namespace {

// A message box that ignores Escape. GTK's own box closes on Escape, whatever its buttons are.
class YesNoBox final : public wxMessageDialog {
public:
    using wxMessageDialog::wxMessageDialog;

    int ShowModal() override {
        // Lets wxModalDialogHook see this message box.
        WX_HOOK_MODAL_DIALOG();
        wxGenericMessageDialog box(GetParent(), GetMessage(), GetCaption(), GetMessageDialogStyle());
        box.Bind(wxEVT_CHAR_HOOK, [](wxKeyEvent& event) {
            if (event.GetKeyCode() != WXK_ESCAPE) event.Skip();
        });
        box.Bind(wxEVT_CLOSE_WINDOW, [&](wxCloseEvent& event) {
            if (event.CanVeto())
                event.Veto();
            else
                box.EndModal(wxID_CANCEL);
        });
        return box.ShowModal();
    }
};

} // namespace

std::optional<bool> AskYesOrNo(wxWindow* parent, const std::string& text, const std::string& title) {
    YesNoBox dialog(parent, wxString::FromUTF8(text), wxString::FromUTF8(title), wxYES_NO | wxICON_QUESTION);
    switch (dialog.ShowModal()) {
    case wxID_YES: return true;
    case wxID_NO: return false;
    default: return std::nullopt;
    }
}

} // namespace nesk::platform
