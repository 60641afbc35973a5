#include "widgets/UiPictureButtons.h"

#include "widgets/FormPicture.h"

#include <cctype>
#include <utility>

#include <wx/button.h>

namespace nesk {

void BindPictureButtons(FormPicture& picture, wxButton& select, wxButton& remove) {
    select.Bind(wxEVT_BUTTON, [&picture](wxCommandEvent&) { picture.Choose(); });
    remove.Bind(wxEVT_BUTTON, [&picture](wxCommandEvent&) { picture.SetPath(""); });
    picture.onChanged = [&picture, &select, &remove, before = std::move(picture.onChanged)] {
        const bool hasPicture = !picture.Path().empty();
        // A disabled control must not keep the focus.
        if (!hasPicture && remove.HasFocus()) select.SetFocus();
        remove.Enable(hasPicture);
        if (before) before();
    };
    remove.Enable(!picture.Path().empty());
}

void SetAccessKey(wxButton& button, char key) {
    wxString label = button.GetLabel();
    const auto lower = [](wxUniChar c) { return c.IsAscii() ? std::tolower(static_cast<int>(c)) : 0; };
    for (std::size_t i = 0; i < label.length(); ++i)
        if (lower(label[i]) == std::tolower(static_cast<unsigned char>(key)))
            return button.SetLabel(label.insert(i, "&"));
}

} // namespace nesk
