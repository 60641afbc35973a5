#pragma once

#include "widgets/FormDialog.h"

#include <string>

namespace nesk {

/// A dialog to create a folder inside a given folder.
class FormFolder : public FormDialog {
public:
    explicit FormFolder(wxWindow* parent);

    /// Shows the dialog.
    /// @param sPath  Windows path of the parent folder
    /// @return full path of the new folder, ending in "\"; "" when the dialog was cancelled. An existing
    ///         folder counts as created
    std::string Invoke(const std::string& sPath);

    // Controls.
    wxStaticText* lblFolder = nullptr; ///< the parent folder, shortened in the middle
    wxStaticText* lblName = nullptr;   ///< label of the box
    wxTextCtrl* txtFolder = nullptr;

protected:
    void OnOK() override;

private:
    std::string m_base;
    std::string m_result;
};

} // namespace nesk
