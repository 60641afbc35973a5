#pragma once

#include "menu/MenuEditor.h"
#include "shell/FormStatusBar.h"
#include "shell/MainCommands.h"

#include <string>

#include <wx/frame.h>

class wxInfoBarGeneric;
class wxMenu;
class wxMenuItem;
class wxTreeEvent;

namespace nesk {

class FormMenuTree;

/// The main window: the tree of the open menu, its commands, and the questions that go with them.
class FormMain : public wxFrame, private MenuEditorListener {
public:
    FormMain();
    ~FormMain() override;

    /// The open menu.
    MenuEditor& Editor() { return m_editor; }

    /// Sets the commands for the state of the window: file open or not, and what is selected.
    void UpdateFileMenus();

    // Controls.
    FormMenuTree* tvMain = nullptr;
    FormStatusBar* sbMain = nullptr;
    wxInfoBarGeneric* ibIncomplete = nullptr;
    wxMenu* mnuMenu = nullptr;
    wxMenuItem* mnuFileOpen = nullptr;
    wxMenuItem* mnuFileSave = nullptr;
    wxMenuItem* mnuFileClose = nullptr;
    wxMenuItem* mnuFileExit = nullptr;
    wxMenuItem* mnuMenuAddPart = nullptr;
    wxMenuItem* mnuMenuAddSubmenu = nullptr;
    wxMenuItem* mnuMenuUp = nullptr;
    wxMenuItem* mnuMenuDown = nullptr;
    wxMenuItem* mnuMenuEdit = nullptr;
    wxMenuItem* mnuMenuRename = nullptr;
    wxMenuItem* mnuMenuRemove = nullptr;
    wxMenuItem* mnuSettingsAccess = nullptr;
    wxMenuItem* mnuSettingsOptions = nullptr;
    wxMenuItem* mnuHelpContents = nullptr;
    wxMenuItem* mnuHelpWindow = nullptr;

private:
    // Construction.
    void BuildMenuBar();
    void BuildControls();
    void PlaceOnScreen();
    wxMenuItem*& ItemOf(MainCommand command);
    void UpdateTitle();

    // The editor's reports.
    void OnMenuReplaced() override;
    void OnMenuEvent(const MenuEvent& event) override;
    void OnStateChanged() override;

    // Commands.
    void OnCommand(MainCommand command);
    void Run(MainCommand command);
    void FileOpen();
    bool FileSave();
    void FileClose();
    void AddEntry(MainCommand command);
    void Move(MainCommand command);
    void Remove();
    void Rename();
    void EditSelected();
    void Options();
    void Access();
    void HelpContents();
    void ShowHelpTopic();

    // The tree's events.
    void OnBeginLabelEdit(wxTreeEvent& event);
    void OnEndLabelEdit(wxTreeEvent& event);
    void OnContextMenu(wxTreeEvent& event);
    void OnTreeKey(wxKeyEvent& event);
    void OnActivated(wxTreeEvent& event);
    void FilterLabelEdit();
    bool FinishLabelEdit();
    void EditLabelAgain(const std::string& id, const wxString& text);

    void OnClose(wxCloseEvent& event);
    bool ConfirmClose(bool mayCancel);
    bool ConfirmOverwrite(const std::string& path);
    int Ask(const std::string& text, int titleId, long style);
    void ShowError(int messageId, const NeskError& error);

    MenuEditor m_editor;
    bool m_editingLabel = false;
    bool m_captionRefused = false; // by the last end of an edit
};

} // namespace nesk
