#pragma once

#include "widgets/FormDialog.h"

class wxTextCtrl;

namespace nesk {

/// The About dialog: version, licence and libraries of the program.
class FormAbout : public FormDialog {
public:
    explicit FormAbout(wxWindow* parent);

    // Controls.
    wxTextCtrl* txtAbout = nullptr; ///< read-only; its text can be selected and copied

protected:
    void OnOK() override { Accept(); }
};

} // namespace nesk
