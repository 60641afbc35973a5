#pragma once

#include "widgets/FormDialog.h"

#include <memory>
#include <string>
#include <vector>

class wxChoice;

namespace nesk {

class FormFolderTree;

/// A dialog to choose an existing folder, or to create a folder and choose it.
class FormBrowse : public FormDialog {
public:
    explicit FormBrowse(wxWindow* parent);
    ~FormBrowse() override;

    /// Shows the dialog.
    /// @param sPrompt  text above the lists
    /// @param sPath    Windows path of the initial folder; the program's folder is used when it does not
    ///                 exist
    /// @return Windows path of the chosen folder, ending in "\"; "" when the dialog was cancelled
    std::string Invoke(const std::string& sPrompt, const std::string& sPath);

    // Controls.
    wxStaticText* lblPrompt = nullptr;
    wxStaticText* lblDrive = nullptr;
    wxChoice* Drive1 = nullptr;
    wxStaticText* lblFolders = nullptr;
    FormFolderTree* Dir1 = nullptr;
    wxButton* cmdFolder = nullptr;

protected:
    void OnOK() override;

private:
    void GoTo(const std::string& path);
    void SelectDrive(char letter);
    void OnDrive();
    void OnNewFolder();

    std::unique_ptr<FormFolderTree> m_folders;
    std::vector<std::string> m_drives; // the entries of Drive1
    std::string m_result;
};

} // namespace nesk
