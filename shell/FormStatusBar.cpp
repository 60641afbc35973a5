#include "shell/FormStatusBar.h"

#include <algorithm>

namespace nesk {

FormStatusBar::FormStatusBar(wxWindow* parent, const char* name)
    : wxStatusBar(parent, wxID_ANY, wxSTB_DEFAULT_STYLE, name) {
    SetFieldsCount(CountsPanel); // there are no numbers yet
    FitPanels(GetClientSize().x);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        FitPanels(event.GetSize().x);
        event.Skip();
    });
}

void FormStatusBar::ShowPath(const wxString& path) {
    SetStatusText(path, PathPanel);
    FitPanels(GetClientSize().x);
}

void FormStatusBar::ShowCounts(const wxString& counts) {
    if (m_counts == counts) return;
    m_counts = counts;
    // GTK cannot draw a panel without width.
    const int panels = counts.empty() ? CountsPanel : PanelCount;
    if (GetFieldsCount() != panels) SetFieldsCount(panels);
    if (!counts.empty()) SetStatusText(counts, CountsPanel);
    FitPanels(GetClientSize().x);
}

// The text, the margin that the bar draws around it, and a gap before the next text.
int FormStatusBar::WidthFor(const wxString& text) const {
    return GetTextExtent(text).x + FromDIP(16);
}

void FormStatusBar::FitPanels(int barWidth) {
    // The bar draws its size grip, which is a square, over the end of the last panel.
    const int grip = GetSize().y;
    const int countsWidth = m_counts.empty() ? 0 : std::min(WidthFor(m_counts) + grip, barWidth / 2);
    const int left = std::max((barWidth - countsWidth) * 4 / 5, FromDIP(16));
    const int pathWidth = std::min(WidthFor(GetStatusText(PathPanel)), left);
    const int widths[PanelCount] = {pathWidth, -1, countsWidth};
    SetStatusWidths(GetFieldsCount(), widths);
}

} // namespace nesk
