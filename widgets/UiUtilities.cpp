#include "widgets/UiUtilities.h"

#include "platform/DefaultFont.h"
#include "platform/UserLocale.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <wx/font.h>
#include <wx/textctrl.h>
#include <wx/window.h>

namespace nesk::modUtilities {

namespace {

// Cached, because the result is the same for every form.
const wxString& FaceName() {
    static const wxString face = ToWx(platform::DefaultGuiFontFace());
    return face;
}

void SetControlFont(wxWindow& control) {
    wxFont font = control.GetFont();
    if (!font.IsOk()) return;
    font.SetFaceName(FaceName());
    // The size is set only when it is too small: setting a whole number would drop a fraction of a point.
    const double points = font.GetFractionalPointSize();
    const int least = ControlFontSize(platform::UserDefaultLocale(), static_cast<int>(points));
    if (points < least) font.SetPointSize(least);
    control.SetFont(font);
}

void SetChildFonts(wxWindow& parent) {
    for (wxWindow* child : parent.GetChildren()) {
        if (child->IsTopLevel()) continue;
        SetControlFont(*child);
        SetChildFonts(*child);
    }
}

} // namespace

wxString ToWx(std::string_view text) {
    return wxString::FromUTF8(text.data(), text.size());
}

std::string FromWx(const wxString& text) {
    return text.utf8_string();
}

wxString ResText(int id) {
    return ToWx(modStringRes::LoadResString(id));
}

void SetFormFont(wxWindow& form) {
    wxFont font = form.GetFont();
    font.SetFaceName(FaceName());
    form.SetFont(font);
    SetChildFonts(form);
}

void SelectAllText(wxTextCtrl& box, bool select) {
    if (select) box.SetSelection(0, box.GetLastPosition());
}

} // namespace nesk::modUtilities
