#pragma once

#include "widgets/FormDialog.h"

#include <string>

namespace nesk {

/// Makes a new folder inside a given one.
class FormFolder : public FormDialog {
public:
    explicit FormFolder(wxWindow* parent);

    /// Shows the dialog.
    /// @param sPath  Windows path of the folder in which the new one is made
    /// @return full path of the new folder, ending in "\"; "" when the dialog was cancelled. A folder that
    ///         exists already counts as made
    std::string Invoke(const std::string& sPath);

    // Controls.
    wxStaticText* lblFolder = nullptr; ///< the folder in which it is made, shortened in the middle
    wxStaticText* lblName = nullptr;   ///< label of the box
    wxTextCtrl* txtFolder = nullptr;

protected:
    void OnOK() override;

private:
    std::string m_base;
    std::string m_result;
};

} // namespace nesk
