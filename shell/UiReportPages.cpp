#include "shell/UiReportPages.h"

#include <memory>

#include <wx/prntbase.h>
#include <wx/toplevel.h>

namespace nesk {

UiReportPages::UiReportPages(const wxString& title, wxWindow* parent) : wxHtmlEasyPrinting(title, parent) {}

// The toolkit's own version leaves the keys with the dialog behind the window, which does not take them.
bool UiReportPages::DoPreview(wxHtmlPrintout* shown, wxHtmlPrintout* printed) {
    wxPrintDialogData data(*GetPrintData());
    auto preview = std::make_unique<wxPrintPreview>(shown, printed, &data);
    if (!preview->IsOk()) return false;
    wxWindow* const parent = GetParentWindow();
    // A control of the dialog, which exists at least as long as the window with the pages.
    wxWindow* const focus = wxWindow::FindFocus();
    auto* frame = new wxPreviewFrame(preview.release(), parent, GetName(), wxDefaultPosition,
                                     parent->FromDIP(wxSize(760, 640)));
    frame->Centre();
    frame->Initialize();
    frame->Bind(wxEVT_DESTROY, [parent, focus](wxWindowDestroyEvent& event) {
        event.Skip();
        parent->CallAfter([parent, focus] {
            parent->Raise();
            if (focus != nullptr) focus->SetFocus();
        });
    });
    frame->Show();
    frame->Raise();
    return true;
}

} // namespace nesk
