#pragma once

#include "widgets/FormDialog.h"

#include <string>

class wxStaticText;

namespace nesk {

class FormPicture;

/// Picks the picture of a menu button. The dialog works on a path alone; nothing is checked but what is
/// shown.
class FormSelectMenuPicture : public FormDialog {
public:
    explicit FormSelectMenuPicture(wxWindow* parent);

    /// Shows the dialog for the picture `sFile` (a Windows path; "" for none).
    /// @return true when it was confirmed; `sFile` is the chosen path then
    bool Display(std::string& sFile);

    // Controls.
    FormPicture* picItemHost = nullptr;
    wxStaticText* lblFile = nullptr; ///< the path, shortened in the middle
    wxButton* cmdMenuSelect = nullptr;
    wxButton* cmdMenuDelete = nullptr;

protected:
    void OnOK() override;

private:
    void ShowPath();

    std::string m_before; // the path that the dialog was opened with
};

} // namespace nesk
