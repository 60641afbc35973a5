#pragma once

#include "editing/EntryIds.h"
#include "partedit/PartImport.h"
#include "partedit/PartImportList.h"
#include "partedit/PartSearch.h"
#include "widgets/FormDialog.h"

#include <optional>
#include <string>

#include <wx/timer.h>

class wxCheckBox;
class wxChoice;
class wxIdleEvent;
class wxKeyEvent;

namespace nesk {

class MenuEditor;
class UiRowList;
class WindowMemory;

/// Adds buttons for the part programs in and below a folder: shows every button before it is made, each with
/// a tick.
class FormAddParts : public FormDialog {
public:
    /// @param editor  with an open menu
    /// @param memory  remembers what the user chose last; must outlive the dialog
    FormAddParts(wxWindow* parent, MenuEditor& editor, WindowMemory& memory);
    ~FormAddParts() override;

    /// Shows the dialog, reads a folder, and adds the parts when the user confirms them.
    /// @param target  id of the entry to add to: a submenu or the root
    /// @param folder  the folder to read first, or the path of a partinfo.ini; several separated by "|"; ""
    ///                for the repository
    /// @return ids of the added entries; none when the dialog was cancelled
    EntryIds Invoke(const std::string& target, const std::string& folder = "");

    /// True while a folder is being read.
    bool IsSearching() const { return m_search.has_value(); }

    /// The plan that is shown; null before a folder was read.
    const PartImport* Plan() const { return m_plan ? &*m_plan : nullptr; }

    // Controls.
    wxStaticText* lblFolder = nullptr;
    wxTextCtrl* txtFolder = nullptr;
    wxButton* cmdBrowse = nullptr;
    wxButton* cmdRead = nullptr;       ///< reads the folder; while it is being read: stops
    wxStaticText* lblStatus = nullptr; ///< how far the search is, or what it has found
    wxStaticText* lblCaptions = nullptr;
    wxChoice* choCaptions = nullptr;
    wxStaticText* lblLetters = nullptr;
    wxChoice* choLetters = nullptr;
    wxCheckBox* chkSubmenus = nullptr;
    wxStaticText* lblPictures = nullptr;
    wxTextCtrl* txtPictures = nullptr;
    wxStaticText* lblPicture = nullptr;
    wxTextCtrl* txtPicture = nullptr;
    wxButton* cmdPicture = nullptr;
    wxStaticText* lblHistory = nullptr;
    wxTextCtrl* txtHistory = nullptr;
    wxButton* cmdHistory = nullptr;
    wxStaticText* lblHistoryHint = nullptr;
    wxStaticText* lblParts = nullptr;
    UiRowList* lstParts = nullptr; ///< in the columns of PartImportList
    wxButton* cmdAll = nullptr;
    wxButton* cmdNone = nullptr;
    wxStaticText* lblNote = nullptr;  ///< the note of the current line
    wxStaticText* lblCount = nullptr; ///< what will be added

protected:
    void OnOK() override;

private:
    void BuildFolder(wxSizer& content);
    void BuildOptions(wxSizer& content);
    void BuildList(wxSizer& content);
    wxChoice* NewChoice(const char* name, std::initializer_list<int> textIds);
    void BindOptions();

    // Reading.
    void StartSearch();
    void FocusListOrFolder();
    void OnSearchTimer();
    void ShowFound(FoundParts found);
    void ShowStatus(const std::string& text);
    bool IsFolderRead() const;
    void OnFolderText();
    void OnBrowse();

    // Options.
    void ShowOptions(const PartImportOptions& options);
    PartImportOptions Options() const;
    void OnIdle(wxIdleEvent& event);
    void PlanAgain();
    void OnChoosePicture();
    void OnBrowseHistory();

    // List.
    void OnListKey(wxKeyEvent& event);
    void OnListChar(wxKeyEvent& event);
    long CurrentLine() const;
    void ShowLines(std::size_t line);
    void TickSelected();
    void TickAll(bool isTicked);
    void UpdateCount();
    void ShowNote();

    MenuEditor& m_editor;
    WindowMemory& m_memory;
    std::string m_target;
    std::optional<PartSearch> m_search;
    std::string m_readFolder; // the folder of the plan, or of the search
    wxTimer m_searchTimer;
    std::optional<PartImport> m_plan;
    PartImportList m_list;
    bool m_optionsChanged = false; // since the plan was made
    EntryIds m_added;
};

} // namespace nesk
