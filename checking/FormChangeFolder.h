#pragma once

#include "checking/FolderUse.h"
#include "widgets/FormDialog.h"

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

    /// Shows the dialog, and makes the change when the user confirms it.
    /// @return true when the change was made
    bool Invoke();

    // Controls.
    wxStaticText* lblFolders = nullptr;
    UiRowList* lstFolders = nullptr;
    wxStaticText* lblCount = nullptr; ///< how many paths change
    wxStaticText* lblPlace = nullptr;
    wxTextCtrl* txtPlace = nullptr;
    wxButton* cmdBrowse = nullptr;

protected:
    void OnOK() override;

private:
    enum class State { Unknown, Exists, Missing };

    void OnSelection();
    void OnBrowse();
    void OnIdle(wxIdleEvent& event);
    int SelectedRow() const;
    std::string TextAt(std::size_t row, int column) const;

    MenuEditor& m_editor;
    FolderUse m_use;
    std::vector<State> m_states; // of the folders
    std::size_t m_lookedUp = 0;  // folders before it have a state
};

} // namespace nesk
