#pragma once

#include "editing/MenuCounts.h"
#include "editing/MenuEditor.h"
#include "shell/EntryDrop.h"
#include "shell/FormStatusBar.h"
#include "shell/MainCommands.h"
#include "shell/StartChoices.h"
#include "shell/UiWindowPlace.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <wx/frame.h>

class wxInfoBarGeneric;
class wxMenu;
class wxMenuItem;
class wxSplitterWindow;

namespace nesk::platform {
class TreeNode;
struct TreeDrop;
} // namespace nesk::platform

namespace nesk {

class FileDrop;
class FormChecker;
class FormDetails;
class FormFileNews;
class FormFinder;
class FormMenuTree;
class FormPanes;
class FormPreview;
class FormProblems;
class FormRecovery;
class FormStartPage;
class FormToolBar;
enum class Fix : std::uint8_t;
struct Finding;

/// The main window: the tree of the open menu, its commands, and their questions to the user.
class FormMain : public wxFrame, private MenuEditorListener, private MainCommandTarget {
public:
    FormMain();
    ~FormMain() override;

    /// A bar above the tree. Few starts need one, so the window of a bar is created when the bar is first
    /// shown.
    struct InfoBar {
        const char* name;
        wxInfoBarGeneric* window = nullptr;
        std::string text{}; ///< the displayed text; empty while the bar is hidden
    };

    /// The open menu.
    MenuEditor& Editor() { return m_editor; }

    /// Enables the commands that are possible now. This depends on the open file and on the selection.
    void UpdateFileMenus();

    // Controls.
    FormMenuTree* tvMain = nullptr;
    FormPanes* spMain = nullptr; ///< the tree with the panes around it
    FormStatusBar* sbMain = nullptr;
    FormToolBar* tbMain = nullptr;
    InfoBar ibIncomplete{"ibIncomplete"};  ///< the file could not be read completely
    InfoBar ibNew{"ibNew"};                ///< the menu has no file yet
    InfoBar ibUnsaved{"ibUnsaved"};        ///< unsaved changes are not kept on disk
    InfoBar ibOthers{"ibOthers"};          ///< who else has the menu open
    InfoBar ibFile{"ibFile"};              ///< what somebody else did to the file
    FormStartPage* pgStart = nullptr;      ///< shown instead of the tree while no menu is open
    FormPreview* pnPreview = nullptr;      ///< null until it is first shown
    FormDetails* pnDetails = nullptr;      ///< below the preview; null like it
    wxSplitterWindow* spPreview = nullptr; ///< the preview and the details
    FormProblems* pnProblems = nullptr;    ///< null until it is first shown
    wxMenu* mnuMenu = nullptr;
    wxMenuItem* mnuFileOpen = nullptr;
    wxMenuItem* mnuFileSave = nullptr;
    wxMenuItem* mnuFileSaveAs = nullptr;
    wxMenuItem* mnuFileVersions = nullptr;
    wxMenuItem* mnuFileReport = nullptr;
    wxMenuItem* mnuFileClose = nullptr;
    wxMenuItem* mnuFileExit = nullptr;
    wxMenuItem* mnuEditUndo = nullptr;
    wxMenuItem* mnuEditRedo = nullptr;
    wxMenuItem* mnuEditUndoHistory = nullptr;
    wxMenuItem* mnuEditCut = nullptr;
    wxMenuItem* mnuEditCopy = nullptr;
    wxMenuItem* mnuEditPaste = nullptr;
    wxMenuItem* mnuEditPasteInside = nullptr;
    wxMenuItem* mnuEditDuplicate = nullptr;
    wxMenuItem* mnuEditSelectAll = nullptr;
    wxMenuItem* mnuEditFind = nullptr;
    wxMenuItem* mnuEditFindNext = nullptr;
    wxMenuItem* mnuEditFindPrevious = nullptr;
    wxMenuItem* mnuEditShowMatches = nullptr;
    wxMenuItem* mnuEditReplace = nullptr;
    wxMenuItem* mnuEditChangeFolder = nullptr;
    wxMenuItem* mnuMenuAddPart = nullptr;
    wxMenuItem* mnuMenuAddSubmenu = nullptr;
    wxMenuItem* mnuMenuAddParts = nullptr;
    wxMenuItem* mnuMenuUp = nullptr;
    wxMenuItem* mnuMenuDown = nullptr;
    wxMenuItem* mnuMenuMoveOut = nullptr;
    wxMenuItem* mnuMenuMoveIn = nullptr;
    wxMenuItem* mnuMenuMoveTo = nullptr;
    wxMenuItem* mnuMenuSortSubmenusFirst = nullptr;
    wxMenuItem* mnuMenuSortMixed = nullptr;
    wxMenuItem* mnuMenuEdit = nullptr;
    wxMenuItem* mnuMenuRename = nullptr;
    wxMenuItem* mnuMenuRemove = nullptr;
    wxMenuItem* mnuViewToolBar = nullptr;
    wxMenuItem* mnuViewStatusBar = nullptr;
    wxMenuItem* mnuViewPreview = nullptr;
    wxMenuItem* mnuViewProblems = nullptr;
    wxMenuItem* mnuViewExpandBelow = nullptr;
    wxMenuItem* mnuViewCollapseAll = nullptr;
    wxMenuItem* mnuSettingsAccess = nullptr;
    wxMenuItem* mnuSettingsOptions = nullptr;
    wxMenuItem* mnuSettingsLanguage = nullptr; ///< in no menu where other software chooses the language
    wxMenuItem* mnuHelpContents = nullptr;
    wxMenuItem* mnuHelpWindow = nullptr;
    wxMenuItem* mnuHelpAbout = nullptr;

private:
    /// Smallest useful width and height of the tree, in device-independent pixels.
    static constexpr int SmallestSide = 140;

    // Construction.
    static wxSize DefaultSize();
    void BuildMenuBar();
    void BuildToolBar();
    void ShowViewBar(wxWindow& bar, bool show);
    void UpdateViewMenu();
    void UpdateCounts();
    void RestoreView();
    void RememberView();
    void BuildControls();
    void PlaceOnScreen();
    wxMenuItem*& ItemOf(MainCommand command);
    void UpdateTitle();
    void UpdateUndoTexts();

    // Events of the editor.
    void OnMenuReplaced() override;
    void OnChangeBegins(std::size_t events) override;
    void OnMenuEvent(const MenuEvent& event) override;
    void OnStateChanged() override;

    // Commands.
    void OnCommand(MainCommand command);
    void FileOpen() override;
    void FileSave() override;
    void FileSaveAs() override;
    void Versions() override;
    void Report() override;
    void FileClose() override;
    void FileExit() override;
    void Undo() override;
    void Redo() override;
    void UndoHistory() override;
    void Cut() override;
    void Copy() override;
    void Paste() override;
    void PasteInside() override;
    void Duplicate() override;
    void SelectAll() override;
    void Find() override;
    void FindNext() override;
    void FindPrevious() override;
    void ShowMatches() override;
    void Replace() override;
    void ChangeFolder() override;
    void AddPart() override;
    void AddSubmenu() override;
    void AddParts() override;
    void MoveUp() override;
    void MoveDown() override;
    void MoveOut() override;
    void MoveIn() override;
    void MoveTo() override;
    void SortSubmenusFirst() override;
    void SortMixed() override;
    void EditSelected() override;
    void Rename() override;
    void Remove() override;
    void ViewToolBar() override;
    void ViewStatusBar() override;
    void ViewPreview() override;
    void ViewProblems() override;
    void ExpandBelow() override;
    void CollapseAll() override;
    void SettingsAccess() override;
    void SettingsOptions() override;
    void SettingsLanguage() override;
    void HelpContents() override;
    void HelpWindow() override;
    void HelpAbout() override;
    bool SaveMenu();
    bool MayUndo(std::size_t count);
    void AddEntry(bool part);
    EntryIds SelectedEntries() const;
    bool CopySelected();
    void PasteAt(const std::string& parentId, int position);
    void RemoveEntries(const EntryIds& ids, bool (MenuEditor::*remove)(const EntryIds&));
    void EditParts(const EntryIds& ids);

    // Dragging.
    void BindDrag();
    EntryIds DraggedInTree() const;
    EntryIds DraggedInPreview() const;
    bool MayDrop(const EntryIds& ids, const EntryDrop& drop);
    void OnDropped(const EntryIds& dragged, const EntryDrop& drop);
    bool OnDroppedText(const std::string& text, const EntryDrop& drop, wxWindow& window);

    // Preview.
    // Names of remembered values.
    static constexpr const char* PreviewScreenName = "PreviewScreen";
    static constexpr const char* DetailsHeightName = "DetailsHeight";
    void BuildPreview();
    void BuildDetails();
    void CheckShownFiles();
    bool IsEditingDetails() const;
    void ShowPreview(bool show);
    void ShowSelectionInPreview();
    void ClosePreview();
    void GoToNextPane();

    // Files from the system's file manager.
    struct FilePlace {
        std::string id;
        bool isOnEntry; ///< false beside the entries of the submenu with the id
    };
    void BindFiles();
    bool MayDropFiles(const std::vector<std::string>& paths, const FilePlace& place);
    void OnDroppedFiles(const std::vector<std::string>& paths, const FilePlace& place, wxWindow& window);
    void SetDroppedPicture(const std::string& id, const std::string& path);
    void OnDragLeft();
    void ShowDragText(const std::string& text);

    // Problems.
    void BuildChecker();
    void CheckForScreen();
    void OnProblemsChanged();
    bool HasProblem(const MenuEntry* entry) const;
    void ShowProblems(bool show);
    void GoToProblem(const Finding& finding);
    void ReturnToProblems();
    void FixProblems(Fix fix, const std::vector<Finding>& selected);
    void MakeProblemFolders(const std::vector<Finding>& findings);

    // Start page, while no menu is open.
    void UpdateStartPage();
    void TakeStep(StartStep step);
    void OpenStation();
    void StationChanged();
    void OnActivate(wxActivateEvent& event);

    // Keys, and events of the tree.
    void BindTree();
    void OnCharHook(wxKeyEvent& event);
    void OnContextMenu(wxWindow& window, wxPoint at);
    bool OnActivated(platform::TreeNode& node);
    void OnEndLabelEdit(platform::TreeNode& node, const std::string* text);
    bool FinishLabelEdit();
    void EditLabelAgain(const std::string& id, const std::string& text);
    void ShowSelected();

    void OnClose(wxCloseEvent& event);
    bool ConfirmClose(bool mayCancel);

    // Unsaved changes that a killed editor left, and changes of the file by others.
    void BuildRecovery();
    void LookAtFile();
    void SaveWithVersion(const std::string& path, const SavePlan& plan);

    void UpdateBars();
    void ShowBar(InfoBar& bar, const std::string& text, int icon);
    int Ask(const std::string& text, int titleId, long style);
    void ShowError(int messageId, const NeskError& error);
    void ShowRefusal(int messageId, const NeskError& error);

    MenuEditor m_editor;
    MenuCounts m_counts{m_editor};
    WindowMemory m_memory;
    UiWindowPlace m_place{*this, m_memory};
    std::unique_ptr<wxMenuItem> m_hiddenItem; // of a command that this station does not have
    std::unique_ptr<FormMenuTree> m_tree;
    std::unique_ptr<FormFinder> m_finder;
    std::unique_ptr<FormChecker> m_checker;
    std::unique_ptr<FormRecovery> m_recovery;
    std::unique_ptr<FormFileNews> m_fileNews;
    std::unique_ptr<FileDrop> m_draggedFiles; // while they are over this window
    std::string m_addedId;                    // the new entry whose caption is being typed for the first time
    bool m_captionRefused = false;            // set by the last end of an edit
    bool m_returnsToProblems = false;         // when the edit of a caption ends
    bool m_wasActive = false;
    std::string m_shownRoot; // the root folder that pgStart shows
};

} // namespace nesk
