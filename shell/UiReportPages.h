#pragma once

#include <wx/html/htmprint.h>

namespace nesk {

/// Prints the report, and shows its pages before.
class UiReportPages : public wxHtmlEasyPrinting {
public:
    /// @param title  of the window with the pages
    /// @param parent  the window to which the focus returns
    UiReportPages(const wxString& title, wxWindow* parent);

protected:
    bool DoPreview(wxHtmlPrintout* shown, wxHtmlPrintout* printed) override;
};

} // namespace nesk
