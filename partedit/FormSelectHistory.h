#pragma once

#include "widgets/FormDialog.h"
#include "widgets/UiShownText.h"

#include <string>

namespace nesk {

/// Sets the history directory and the history title of a part, or of the settings.
class FormSelectHistory : public FormDialog {
public:
    explicit FormSelectHistory(wxWindow* parent);

    /// Shows the dialog.
    /// @param directory       Windows path of the history directory
    /// @param title           title of the history
    /// @param defaultCaption  cmdDefault offers the defaults of the settings; otherwise, to keep no history
    /// @param proposedTitle   title that is offered where `title` is empty; "" for none
    /// @return false when the dialog was cancelled; true otherwise, with `directory` and `title` as
    /// confirmed,
    ///         both empty after cmdDefault and unchanged after the close box
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

    // Accepts the unchanged values: closing says that the user is content, and only Cancel says no.
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
