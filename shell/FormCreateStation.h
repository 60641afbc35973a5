#pragma once

#include "shell/StationCreation.h"
#include "widgets/FormDialog.h"

class wxRadioButton;
class wxStaticText;
class wxTextCtrl;

namespace nesk {

/// A dialog that creates a station and replaces the current station by it.
class FormCreateStation : public FormDialog {
public:
    explicit FormCreateStation(wxWindow* parent);

    /// Shows the dialog.
    /// @return true when the station was created and is now the current one
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
    wxStaticText* lblUsual = nullptr; ///< how the program finds the station at the next start

protected:
    void OnOK() override;

private:
    void OnFolder();
    wxTextCtrl& BoxOf(StationCreation::Field field);
};

} // namespace nesk
