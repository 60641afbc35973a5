#include "shell/FormMain.h"

#include "base/Messages.h"
#include "checking/FileDrop.h"
#include "settings/FormAccess.h"
#include "settings/LanguageChoice.h"
#include "settings/NeskRegistry.h"
#include "shell/FormChecker.h"
#include "shell/FormDetails.h"
#include "shell/FormFileNews.h"
#include "shell/FormFinder.h"
#include "shell/FormMenuTree.h"
#include "shell/FormPanes.h"
#include "shell/FormRecovery.h"
#include "shell/FormStartPage.h"
#include "shell/FormToolBar.h"
#include "shell/UiCommandIcons.h"
#include "shell/modHelp.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiIcons.h"
#include "widgets/UiUtilities.h"

#include <array>
#include <new>

#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::ResText;
using modUtilities::ToWx;

FormMain::FormMain()
    // Setting the size here avoids the display queries that wx makes to compute a default.
    : wxFrame(nullptr, wxID_ANY, "", wxDefaultPosition, DefaultSize(), wxDEFAULT_FRAME_STYLE, "FormMain") {
    BuildMenuBar();
    BuildToolBar();
    BuildControls();
    modUtilities::SetFormFont(*this);
    SetIcon(IconBundle("app", wxSize(48, 48)).GetIconFor(this));
    RestoreView();
    m_editor.AddListener(*this);
    m_editor.SetContextSource([this] { return tvMain->Context(); });

    Bind(wxEVT_MENU, [this](wxCommandEvent& event) {
        if (const auto command = CommandOf(event.GetId()))
            OnCommand(*command);
        else
            event.Skip();
    });
    Bind(wxEVT_CLOSE_WINDOW, &FormMain::OnClose, this);
    BindTree();
    BuildRecovery();

    Bind(wxEVT_ACTIVATE, &FormMain::OnActivate, this);
    FormMain::OnMenuReplaced();
}

FormMain::~FormMain() {
    m_editor.SetContextSource({});
    m_recovery->onTexts = nullptr;
    tvMain->SetProblems({});
    // It listens to the editor, which is destroyed before the windows.
    ClosePreview();
    m_editor.RemoveListener(*this);
}

// The menu item of a command. The array is in the order of MainCommand.
wxMenuItem*& FormMain::ItemOf(MainCommand command) {
    static constexpr std::array<wxMenuItem * FormMain::*, MainCommandCount> items{
        &FormMain::mnuFileOpen,
        &FormMain::mnuFileSave,
        &FormMain::mnuFileSaveAs,
        &FormMain::mnuFileVersions,
        &FormMain::mnuFileReport,
        &FormMain::mnuFileClose,
        &FormMain::mnuFileExit,
        &FormMain::mnuEditUndo,
        &FormMain::mnuEditRedo,
        &FormMain::mnuEditUndoHistory,
        &FormMain::mnuEditCut,
        &FormMain::mnuEditCopy,
        &FormMain::mnuEditPaste,
        &FormMain::mnuEditPasteInside,
        &FormMain::mnuEditDuplicate,
        &FormMain::mnuEditSelectAll,
        &FormMain::mnuEditFind,
        &FormMain::mnuEditFindNext,
        &FormMain::mnuEditFindPrevious,
        &FormMain::mnuEditShowMatches,
        &FormMain::mnuEditReplace,
        &FormMain::mnuEditChangeFolder,
        &FormMain::mnuMenuAddPart,
        &FormMain::mnuMenuAddSubmenu,
        &FormMain::mnuMenuAddParts,
        &FormMain::mnuMenuUp,
        &FormMain::mnuMenuDown,
        &FormMain::mnuMenuMoveOut,
        &FormMain::mnuMenuMoveIn,
        &FormMain::mnuMenuMoveTo,
        &FormMain::mnuMenuSortSubmenusFirst,
        &FormMain::mnuMenuSortMixed,
        &FormMain::mnuMenuEdit,
        &FormMain::mnuMenuRename,
        &FormMain::mnuMenuRemove,
        &FormMain::mnuViewPreview,
        &FormMain::mnuViewProblems,
        &FormMain::mnuViewToolBar,
        &FormMain::mnuViewStatusBar,
        &FormMain::mnuViewExpandBelow,
        &FormMain::mnuViewCollapseAll,
        &FormMain::mnuSettingsAccess,
        &FormMain::mnuSettingsOptions,
        &FormMain::mnuSettingsLanguage,
        &FormMain::mnuHelpContents,
        &FormMain::mnuHelpWindow,
        &FormMain::mnuHelpAbout,
    };
    return this->*items[static_cast<std::size_t>(command)];
}

void FormMain::BuildMenuBar() {
    auto* bar = new wxMenuBar;
    wxMenu* menu = nullptr;
    int menuText = 0;
    for (const MainCommandInfo& info : MainCommandTable()) {
        if (menu == nullptr || info.menu != menuText) {
            menuText = info.menu;
            menu = new wxMenu;
            bar->Append(menu, ResText(menuText));
            if (menuText == Message::MenuMenu) mnuMenu = menu;
        }
        if (info.separatorBefore) menu->AppendSeparator();
        ItemOf(info.command) = menu->Append(CommandId(info.command), ResText(info.text),
                                            ResText(info.text + Message::StatusHelpOffset),
                                            info.places.isCheck ? wxITEM_CHECK : wxITEM_NORMAL);
    }
    if (!LanguageChoice::MayChange())
        m_hiddenItem.reset(mnuSettingsLanguage->GetMenu()->Remove(mnuSettingsLanguage));
    SetMenuBar(bar);
}

void FormMain::BuildControls() {
    sbMain = new FormStatusBar(this, "sbMain");
    SetStatusBar(sbMain);
    // Menu explanations go into the second panel, so the path stays visible.
    SetStatusBarPane(FormStatusBar::HelpPanel);

    pgStart = new FormStartPage(this, [this](StartStep step) { TakeStep(step); });
    spMain = new FormPanes(this, FromDIP(SmallestSide));
    m_tree = std::make_unique<FormMenuTree>(spMain->Inner(), m_editor);
    tvMain = m_tree.get();
    spMain->SetTree(tvMain->Window());
    m_finder = std::make_unique<FormFinder>(*this, m_editor, *m_tree);
    m_finder->UseToolBar(*tbMain);
    BuildChecker();
    spMain->SetMinSize(FromDIP(wxSize(SmallestSide, SmallestSide)));

    auto* sizer = new wxBoxSizer(wxVERTICAL);
    // Only one of these two is visible at a time.
    sizer->Add(pgStart, wxSizerFlags(1).Expand());
    sizer->Add(spMain, wxSizerFlags(1).Expand());
    SetSizer(sizer);
}

void FormMain::UpdateTitle() {
    const std::string caption = LoadResString(Message::WindowCaption);
    SetTitle(ToWx(m_editor.IsDirty() ? FormatResString(Message::DirtyTitle, caption) : caption));
}

void FormMain::UpdateFileMenus() {
    const MainCommandSet enabled = CurrentCommands(m_editor, SelectedEntries(), [] {
        return modUtilities::DirectoryExists(NeskRegistry::Instance().NeskRoot);
    });
    // While a caption or a field is being edited, Del deletes characters and not the entry, and the keys of
    // the Edit menu edit the text.
    const bool inDetails = IsEditingDetails();
    const bool typing = tvMain->View().Edited() != nullptr || inDetails;
    for (const MainCommandInfo& info : MainCommandTable()) {
        const bool belongsToText = typing && (info.editsText || info.command == MainCommand::Remove);
        bool enable = Contains(enabled, info.command) && !belongsToText;
        // In a field they are also for the changes of the menu, of which the typing becomes the last one.
        if (inDetails && info.command == MainCommand::Undo)
            enable = Contains(enabled, info.command) || pnDetails->HasTyping();
        else if (inDetails && info.command == MainCommand::Redo)
            enable = Contains(enabled, info.command) && !pnDetails->HasTyping();
        ItemOf(info.command)->Enable(enable);
        tbMain->EnableCommand(info.command, enable);
    }
    UpdateCounts();
    wxMenuBar* bar = GetMenuBar();
    for (std::size_t i = 0; i < bar->GetMenuCount(); ++i)
        if (bar->GetMenu(i) == mnuMenu) bar->EnableTop(i, m_editor.IsOpen());
}

void FormMain::OnChangeBegins(std::size_t events) {
    tvMain->Expect(events);
}

void FormMain::OnMenuEvent(const MenuEvent& event) {
    tvMain->Follow(event);
}

void FormMain::OnCommand(MainCommand command) {
    try {
        const MainCommandInfo& info = InfoOf(command);
        if (info.menu == Message::MenuMenu) ShowSelected();
        (this->*info.run)();
    } catch (const NeskError& error) {
        ShowError(Message::CommandFailed, error);
    } catch (const std::bad_alloc&) {
        ShowError(Message::CommandFailed,
                  NeskError(RuntimeError::OutOfMemory, "FormMain", Message::NoMemoryToEdit));
    }
}

void FormMain::FileSave() {
    SaveMenu();
}

void FormMain::FileExit() {
    Close();
}

void FormMain::AddPart() {
    AddEntry(true);
}

void FormMain::AddSubmenu() {
    AddEntry(false);
}

void FormMain::AddEntry(bool part) {
    if (!FinishLabelEdit()) return;
    const std::string caption = LoadResString(part ? Message::NewPartCaption : Message::NewSubmenuCaption);
    const std::string parent = tvMain->SelectedKey();
    const std::string id = part ? m_editor.AddPart(parent, caption) : m_editor.AddSubmenu(parent, caption);
    if (id.empty()) return;
    tvMain->SelectKey(id);
    tvMain->Window().SetFocus();
    m_addedId = id;
    tvMain->View().EditLabel(*tvMain->NodeOf(id));
}

void FormMain::Rename() {
    platform::TreeNode* const node = tvMain->View().Selected();
    if (node == nullptr || tvMain->View().Edited() != nullptr) return;
    // Another pane may have the focus.
    tvMain->Window().SetFocus();
    tvMain->View().EditLabel(*node);
}

void FormMain::SettingsAccess() {
    FormAccess(this).Invoke();
}

void FormMain::HelpContents() {
    if (!modHelp::IsHtmlHelp()) {
        modHelp::ShowHelpTopic(GetHandle(), modHelp::Topic::General);
    } else if (modHelp::ShowHelpContents(GetHandle())) {
        // If the contents cannot be shown, the topic cannot be shown either, and a message has already said
        // why.
        modHelp::ShowHelpTopic(GetHandle(), modHelp::Topic::Overview);
    }
}

void FormMain::HelpWindow() {
    modHelp::ShowHelpTopic(GetHandle(), modHelp::Topic::MainWindow);
}

int FormMain::Ask(const std::string& text, int titleId, long style) {
    wxMessageDialog dialog(this, ToWx(text), ResText(titleId), style);
    return dialog.ShowModal();
}

void FormMain::ShowError(int messageId, const NeskError& error) {
    Ask(FormatResString(messageId, modUtilities::ErrorText(error)), Message::ErrorTitle, wxOK | wxICON_ERROR);
}

// Shows why the program refused what the user did. The number of the error means nothing to the user.
void FormMain::ShowRefusal(int messageId, const NeskError& error) {
    Ask(FormatResString(messageId, modUtilities::MessageText(error)), Message::ErrorTitle,
        wxOK | wxICON_ERROR);
}

} // namespace nesk
