#pragma once

#include "widgets/FormDialog.h"
#include "widgets/UiShownText.h"

#include <cstdint>
#include <string>

namespace nesk {

/// A dialog to set the help file of a part and the topic in that file. It does not check whether the file
/// exists.
class FormSelectHelpFile : public FormDialog {
public:
    explicit FormSelectHelpFile(wxWindow* parent);

    /// Shows the dialog.
    /// @param sFile   Windows path of the help file; "" for no file
    /// @param nTopic  number of the topic
    /// @return true when the user confirmed the dialog; `sFile` and `nTopic` are then the input
    bool Display(std::string& sFile, std::int32_t& nTopic);

    // Controls.
    wxStaticText* lblHelpFile = nullptr;
    wxTextCtrl* txtHelpFile = nullptr;
    wxButton* cmdBrowse = nullptr;
    wxStaticText* lblHelpTopic = nullptr;
    wxTextCtrl* txtHelpTopic = nullptr;

protected:
    void OnOK() override;

private:
    void OnBrowse();

    std::string m_before; // the initial file
    std::string m_file;
    ShownText m_shownFile;
    std::int32_t m_topic = 0;
    std::string m_defaultFolder;
    std::string m_chosen; // the file last chosen in the file dialog
};

} // namespace nesk
