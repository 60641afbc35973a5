#pragma once

#include <wx/statusbr.h>

namespace nesk {

/// A status bar with three panels. The first always shows one or two paths, the second shows temporary
/// explanations, the third, while there are any, numbers. The third panel gets the width that its text needs,
/// up to half of the bar, and the first up to four fifths of what is left. The second gets the rest. This
/// works for any font and any width of the bar.
class FormStatusBar : public wxStatusBar {
public:
    enum Panel { PathPanel, HelpPanel, CountsPanel, PanelCount };

    /// @param name  control name, for example "sbMain"
    FormStatusBar(wxWindow* parent, const char* name);

    /// Shows a path in the first panel.
    void ShowPath(const wxString& path);

    /// Shows numbers in the third panel; "" for none.
    void ShowCounts(const wxString& counts);
    const wxString& Counts() const { return m_counts; }

private:
    int WidthFor(const wxString& text) const;
    void FitPanels(int barWidth);

    wxString m_counts;
};

} // namespace nesk
