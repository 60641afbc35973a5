#pragma once

#include "widgets/FormDialog.h"

class wxCheckBox;
class wxStaticText;
class wxTextCtrl;

namespace nesk {

/// A dialog to set the administrator's access code. The input is masked until the user asks to see it.
class FormAccess : public FormDialog {
public:
    explicit FormAccess(wxWindow* parent);

    /// Shows the dialog with both fields empty. Returns when the dialog is closed.
    void Invoke();

    // Controls. The two boxes are created again when the mask is switched on or off.
    wxStaticText* lblAccessCode = nullptr;
    wxTextCtrl* txtCode1 = nullptr;
    wxStaticText* lblReenter = nullptr;
    wxTextCtrl* txtCode2 = nullptr;
    wxStaticText* lblState = nullptr; ///< says whether a code is stored
    wxCheckBox* chkShow = nullptr;

protected:
    void OnOK() override;

private:
    wxTextCtrl* NewCodeBox(const char* name, bool masked);
    void ReplaceBox(wxTextCtrl*& box, wxWindow* label, bool masked);
};

} // namespace nesk
