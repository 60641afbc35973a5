#pragma once

#include "editing/MenuEditor.h"
#include "menu/PartFields.h"
#include "widgets/FormDialog.h"

#include <vector>

class wxCheckBox;

namespace nesk {

class FormPicture;

/// A dialog to give several part buttons the same picture or history directory. What is not ticked keeps the
/// different values of the parts.
class FormEditParts : public FormDialog {
public:
    explicit FormEditParts(wxWindow* parent);

    /// Shows the dialog.
    /// @param parts  the present fields of the parts; at least one
    /// @return the values for all parts; nothing when the dialog was cancelled
    std::optional<CommonPartFields> Edit(const std::vector<PartFields>& parts);

    // Controls.
    wxCheckBox* chkPicture = nullptr;
    FormPicture* picItemHost = nullptr;
    wxStaticText* lblPicture = nullptr; ///< what the parts have now
    wxButton* cmdMenuSelect = nullptr;
    wxButton* cmdMenuDelete = nullptr;
    wxCheckBox* chkHistory = nullptr;
    wxTextCtrl* txtHistoryDir = nullptr;
    wxButton* cmdBrowse = nullptr;
    wxStaticText* lblHistory = nullptr; ///< what the parts have now

protected:
    void OnOK() override;

private:
    void OnBrowse();
    void UpdateControls();

    std::string m_historyBefore;
    bool m_hasPicture = false; // the picture that is shown is that of all parts, or the user chose it
};

} // namespace nesk
