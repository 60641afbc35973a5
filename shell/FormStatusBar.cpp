#include "shell/FormStatusBar.h"

#include <algorithm>

namespace nesk {

FormStatusBar::FormStatusBar(wxWindow* parent, const char* name)
    : wxStatusBar(parent, wxID_ANY, wxSTB_DEFAULT_STYLE, name) {
    SetFieldsCount(PanelCount);
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

void FormStatusBar::FitPanels(int barWidth) {
    // The margin that the bar draws around a text, plus a gap before the next text.
    const int around = FromDIP(16);
    const int needed = GetTextExtent(GetStatusText(PathPanel)).x + around;
    const int widths[PanelCount] = {std::min(needed, std::max(barWidth * 4 / 5, around)), -1};
    SetStatusWidths(PanelCount, widths);
}

} // namespace nesk
