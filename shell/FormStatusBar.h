#pragma once

#include <wx/statusbr.h>

namespace nesk {

/// A status bar with two panels. The first always shows one or two paths, the second shows temporary
/// explanations. The first panel gets the width that its text needs, up to four fifths of the bar. The second
/// gets the rest. This works for any font and any width of the bar.
class FormStatusBar : public wxStatusBar {
public:
    enum Panel { PathPanel, HelpPanel, PanelCount };

    /// @param name  control name, for example "sbMain"
    FormStatusBar(wxWindow* parent, const char* name);

    /// Shows a path in the first panel.
    void ShowPath(const wxString& path);

private:
    void FitPanels(int barWidth);
};

} // namespace nesk
