#pragma once

#include "widgets/FormDialog.h"
#include "widgets/UiShownText.h"

#include <cstdint>
#include <string>

namespace nesk {

/// Sets the help file of a part and the topic in it. Whether the file exists is not checked.
class FormSelectHelpFile : public FormDialog {
public:
    explicit FormSelectHelpFile(wxWindow* parent);

    /// Shows the dialog.
    /// @param sFile   Windows path of the help file; "" for none
    /// @param nTopic  number of the topic
    /// @return true when it was confirmed; `sFile` and `nTopic` are what was entered then
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

    std::string m_before; // the file that the dialog was opened with
    std::string m_file;
    ShownText m_shownFile;
    std::int32_t m_topic = 0;
    std::string m_defaultFolder;
    std::string m_chosen; // what the file dialog holds: the file chosen in it last
};

} // namespace nesk
