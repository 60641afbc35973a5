#include "shell/FormAbout.h"

#include "base/Messages.h"
#include "shell/AboutText.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/utils.h>
#include <wx/versioninfo.h>

namespace nesk {

using modUtilities::ToWx;

FormAbout::FormAbout(wxWindow* parent) : FormDialog(parent, "FormAbout", Message::AboutTitle, 0) {
    const wxVersionInfo toolkit = wxGetLibraryVersionInfo();
    const wxString version =
        wxString::Format("%d.%d.%d", toolkit.GetMajor(), toolkit.GetMinor(), toolkit.GetMicro());
    txtAbout = new wxTextCtrl(
        this, wxID_ANY, ToWx(AboutText({"wxWidgets", modUtilities::FromWx(version), "wxWindows licence"})),
        wxDefaultPosition, FromDIP(wxSize(460, 260)), wxTE_MULTILINE | wxTE_READONLY, wxDefaultValidator,
        "txtAbout");
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(txtAbout, wxSizerFlags(1).Expand());
    Finish(content);
    // Escape still works.
    cmdCancel->Hide();
    Layout();
    cmdOK->SetFocus();
    // Scrolls to the beginning of the text.
    CallAfter([this] {
        txtAbout->SetInsertionPoint(0);
        txtAbout->ShowPosition(0);
    });
}

} // namespace nesk
