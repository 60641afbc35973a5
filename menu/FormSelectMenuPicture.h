#pragma once

#include "widgets/FormDialog.h"

#include <string>

class wxStaticText;

namespace nesk {

class FormPicture;

/// A dialog to choose the picture of a menu button. It only handles a path: the picture file need not
/// exist.
class FormSelectMenuPicture : public FormDialog {
public:
    explicit FormSelectMenuPicture(wxWindow* parent);

    /// Shows the dialog for the picture `sFile` (a Windows path; "" for no picture).
    /// @return true when the user confirmed the dialog; `sFile` is then the chosen path
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
