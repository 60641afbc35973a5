#pragma once

#include "widgets/FormDialog.h"
#include "widgets/UiShownText.h"

#include <string>

namespace nesk {

/// A dialog to set the history directory and the history title of a part or of the settings.
class FormSelectHistory : public FormDialog {
public:
    explicit FormSelectHistory(wxWindow* parent);

    /// Shows the dialog.
    /// @param directory       Windows path of the history directory
    /// @param title           title of the history
    /// @param defaultCaption  when true, cmdDefault offers the defaults of the settings; otherwise,
    ///                        it offers to keep no history
    /// @param proposedTitle   initial title when `title` is empty; "" for no proposal
    /// @return false when the user cancelled the dialog; otherwise true. `directory` and `title` are then the
    ///         confirmed values. Both are empty after cmdDefault, and unchanged after the close box
    bool Display(std::string& directory, std::string& title, bool defaultCaption,
                 const std::string& proposedTitle = "");

    // Controls.
    wxStaticText* lblHistoryDir = nullptr;
    wxTextCtrl* txtHistoryDir = nullptr;
    wxButton* cmdBrowse = nullptr;
    wxStaticText* lblHistoryTitle = nullptr;
    wxTextCtrl* txtHistoryTitle = nullptr;
    wxButton* cmdDefault = nullptr;

protected:
    void OnOK() override;

    // The close box accepts the unchanged values. Only Cancel cancels the dialog.
    void OnCloseBox() override { Accept(); }

private:
    void OnBrowse();
    void OnDefault();
    void Refuse(int label, const std::string& reason, wxTextCtrl& field);

    std::string m_directory;
    std::string m_title;
    ShownText m_shownDirectory;
    ShownText m_shownTitle;
};

} // namespace nesk
