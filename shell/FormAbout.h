#pragma once

#include "widgets/FormDialog.h"

class wxTextCtrl;

namespace nesk {

/// Tells version, licence and libraries of the program.
class FormAbout : public FormDialog {
public:
    explicit FormAbout(wxWindow* parent);

    // Controls.
    wxTextCtrl* txtAbout = nullptr; ///< cannot be changed; can be selected and copied

protected:
    void OnOK() override { Accept(); }
};

} // namespace nesk
