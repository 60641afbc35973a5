#pragma once

#include "shell/StationCreation.h"
#include "widgets/FormDialog.h"

class wxRadioButton;
class wxStaticText;
class wxTextCtrl;

namespace nesk {

/// Makes a new station and puts it in place of the one in use.
class FormCreateStation : public FormDialog {
public:
    explicit FormCreateStation(wxWindow* parent);

    /// Shows the dialog.
    /// @return true when the station was made and is in use
    bool Invoke();

    // Controls.
    wxRadioButton* optExample = nullptr;
    wxRadioButton* optEmpty = nullptr;
    wxStaticText* lblFolder = nullptr;
    wxTextCtrl* txtFolder = nullptr;
    wxButton* cmdFolder = nullptr;
    wxStaticText* lblMachine = nullptr;
    wxTextCtrl* txtMachine = nullptr;
    wxStaticText* lblUser = nullptr;
    wxTextCtrl* txtUser = nullptr;
    wxStaticText* lblUsual = nullptr; ///< how the station is found at the next start

protected:
    void OnOK() override;

private:
    void OnFolder();
    wxTextCtrl& BoxOf(StationCreation::Field field);
};

} // namespace nesk
