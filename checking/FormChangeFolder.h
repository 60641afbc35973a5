#pragma once

#include "checking/FolderUse.h"
#include "widgets/FormDialog.h"

#include <cstddef>
#include <string>
#include <vector>

class wxIdleEvent;

namespace nesk {

class MenuEditor;
class UiRowList;

/// Gives a folder that the menu uses another place: all paths below it change.
class FormChangeFolder : public FormDialog {
public:
    /// @param editor  with an open menu
    FormChangeFolder(wxWindow* parent, MenuEditor& editor);
    ~FormChangeFolder() override;

    /// Shows the dialog, and makes the change when the user confirms it. Asks first when the new place does
    /// not exist.
    /// @param folder  selected at first, without a trailing "\"; "" for none
    /// @return true when the change was made
    bool Invoke(const std::string& folder = "");

    // Controls.
    wxStaticText* lblFolders = nullptr;
    UiRowList* lstFolders = nullptr;
    wxStaticText* lblPlace = nullptr;
    wxTextCtrl* txtPlace = nullptr;
    wxButton* cmdBrowse = nullptr;
    wxStaticText* lblCount = nullptr; ///< how many paths change
    UiRowList* lstPaths = nullptr;    ///< the paths that change, before and after

protected:
    void OnOK() override;

private:
    enum class State { Unknown, Exists, Missing };

    void BuildFolders(wxSizer& content);
    void BuildPlace(wxSizer& content);
    void BuildPaths(wxSizer& content);
    void OnSelection();
    void OnBrowse();
    void OnIdle(wxIdleEvent& event);
    int SelectedRow() const;
    std::string TextAt(std::size_t row, int column) const;
    std::string PathTextAt(std::size_t row, int column) const;
    void LookUpFolders();

    MenuEditor& m_editor;
    FolderUse m_use;
    std::vector<State> m_states;     // of the folders
    std::size_t m_lookedUp = 0;      // folders before it have a state
    std::vector<TextChange> m_paths; // those of the selected folder
    std::string m_folder;            // the folder of m_paths
};

} // namespace nesk
