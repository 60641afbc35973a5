#pragma once

#include <wx/statusbr.h>

namespace nesk {

/// A status bar with two panels: a path, or two, that stay, and an explanation that comes and goes. The paths
/// have the room that they need, at most four fifths of the bar, and the explanation the rest, whatever font
/// and size the bar has.
class FormStatusBar : public wxStatusBar {
public:
    enum Panel { PathPanel, HelpPanel, PanelCount };

    /// @param name  control name, as "sbMain"
    FormStatusBar(wxWindow* parent, const char* name);

    /// Shows a path in the first panel.
    void ShowPath(const wxString& path);

private:
    void FitPanels(int barWidth);
};

} // namespace nesk
