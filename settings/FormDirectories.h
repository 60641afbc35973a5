#pragma once

#include "settings/OptionsModel.h"
#include "widgets/FormDialog.h"

#include <string>

class wxStaticText;
class wxTextCtrl;

namespace nesk {

/// The administrator's options dialog: the settings of the operator interface.
class FormDirectories : public FormDialog {
public:
    explicit FormDirectories(wxWindow* parent);

    /// Shows the dialog with the settings of the record. OK stores and saves them.
    /// @param mayMakeRoot  when true, the dialog offers to create a root folder that does not exist
    /// @return true when the user confirmed the dialog
    bool Invoke(bool mayMakeRoot = false);

    // Controls.
    wxStaticText* lblRoot = nullptr;
    wxTextCtrl* txtRoot = nullptr;
    wxButton* cmdRoot = nullptr;
    wxStaticText* lblSlides = nullptr;
    wxTextCtrl* txtSlides = nullptr;
    wxButton* cmdSlides = nullptr;
    wxStaticText* lblBitmap = nullptr;
    wxTextCtrl* txtBitmap = nullptr;
    wxButton* cmdBitmap = nullptr;
    wxStaticText* lblMachine = nullptr;
    wxTextCtrl* txtMachine = nullptr; ///< display name of the selected machine; read-only
    wxButton* cmdMachine = nullptr;
    wxStaticText* lblUser = nullptr;
    wxTextCtrl* txtUser = nullptr; ///< display name of the selected user; read-only
    wxButton* cmdUser = nullptr;
    wxStaticText* lblMaxParts = nullptr;
    wxTextCtrl* txtMaxParts = nullptr;
    wxStaticText* lblSampleSize = nullptr;
    wxTextCtrl* txtSampleSize = nullptr;
    wxButton* cmdHistory = nullptr;
    wxButton* cmdPrinter = nullptr;
    wxStaticText* lblPrinter = nullptr; ///< name of the stored printer

protected:
    void OnOK() override;

private:
    wxSizer* BuildRows();
    void BindEvents();
    void ShowFields();
    void ReadFields();
    void ApplyHistoryRule();
    void BrowseFor(wxTextCtrl& box, int promptId);
    void ChooseMachine();
    void ChooseUser();
    void ChooseHistory();
    void OfferRoot();
    void ShowPrinter();
    void SetUpPrinter();
    void Refuse(const OptionsModel::Fault& fault);
    wxTextCtrl& BoxOf(OptionsModel::Field field);

    OptionsFields m_fields;
    bool m_mayMakeRoot = false;
};

} // namespace nesk
