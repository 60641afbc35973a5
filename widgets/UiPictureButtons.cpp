#include "widgets/UiPictureButtons.h"

#include "shell/modStringRes.h"
#include "widgets/FormPicture.h"

#include <cctype>
#include <cstddef>
#include <string>
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

namespace {

// Texts in scripts without Latin letters end in "...", if at all; the key stands before that.
constexpr const char* Ellipsis = "...";

void SetAccessKey(wxButton& button, char key) {
    wxString label = button.GetLabel();
    const auto lower = [](wxUniChar c) { return c.IsAscii() ? std::tolower(static_cast<int>(c)) : 0; };
    for (std::size_t i = 0; i < label.length(); ++i)
        if (lower(label[i]) == std::tolower(static_cast<unsigned char>(key)))
            return button.SetLabel(label.insert(i, "&"));
    wxString end;
    if (label.EndsWith(Ellipsis, &label)) end = Ellipsis;
    button.SetLabel(label + "(&" + static_cast<char>(std::toupper(static_cast<unsigned char>(key))) + ")" +
                    end);
}

} // namespace

void SetAccessKeys(const std::vector<wxButton*>& buttons, int keysId) {
    const std::string keys = modStringRes::LoadResString(keysId);
    for (std::size_t i = 0; i < buttons.size() && i < keys.size(); ++i)
        SetAccessKey(*buttons[i], keys[i]);
}

} // namespace nesk
