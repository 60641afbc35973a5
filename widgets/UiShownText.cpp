#include "widgets/UiShownText.h"

#include "widgets/UiUtilities.h"

#include <wx/textctrl.h>

namespace nesk {

void ShownText::Show(wxTextCtrl& box, const std::string& text) {
    m_text = text;
    box.ChangeValue(modUtilities::ToWx(text));
    m_shown = box.GetValue();
}

std::string ShownText::Of(const wxTextCtrl& box) const {
    const wxString now = box.GetValue();
    return now == m_shown ? m_text : modUtilities::FromWx(now);
}

} // namespace nesk
