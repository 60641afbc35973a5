#pragma once

#include "widgets/FormDialog.h"

#include <string>

class wxStaticText;
class wxTextCtrl;

namespace nesk {

/// A dialog that asks for the name of a new entry of a list in the registry.
class FormListName : public FormDialog {
public:
    explicit FormListName(wxWindow* parent);

    /// Shows the dialog.
    /// @param name  receives a valid name
    /// @return false when the user cancelled the dialog
    bool Ask(std::string& name);

    // Controls.
    wxStaticText* lblName = nullptr;
    wxTextCtrl* txtName = nullptr;

protected:
    void OnOK() override;
};

} // namespace nesk
