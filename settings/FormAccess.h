#pragma once

#include "widgets/FormDialog.h"

class wxCheckBox;
class wxStaticText;
class wxTextCtrl;

namespace nesk {

/// Sets the administrator's access code. What is typed is masked until the user asks to see it.
class FormAccess : public FormDialog {
public:
    explicit FormAccess(wxWindow* parent);

    /// Shows the dialog with both fields empty and returns when it is closed.
    void Invoke();

    // Controls. The two boxes are made anew when the mask is taken off or put on.
    wxStaticText* lblAccessCode = nullptr;
    wxTextCtrl* txtCode1 = nullptr;
    wxStaticText* lblReenter = nullptr;
    wxTextCtrl* txtCode2 = nullptr;
    wxStaticText* lblState = nullptr; ///< whether a code is stored
    wxCheckBox* chkShow = nullptr;

protected:
    void OnOK() override;

private:
    wxTextCtrl* NewCodeBox(const char* name, bool masked);
    void ReplaceBox(wxTextCtrl*& box, wxWindow* label, bool masked);
};

} // namespace nesk
