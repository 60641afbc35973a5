#include "shell/FormMain.h"

#include "menu/FormSelectMenuPicture.h"
#include "menu/MenuItem.h"
#include "partedit/FormEditPart.h"
#include "settings/FormAccess.h"
#include "settings/FormDirectories.h"
#include "settings/NeskRegistry.h"
#include "shell/FormIcons.h"
#include "shell/FormMenuTree.h"
#include "shell/FormUtilities.h"
#include "shell/Messages.h"
#include "shell/modHelp.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>

#include <wx/display.h>
#include <wx/infobar.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

constexpr int FirstCommandId = wxID_HIGHEST + 1;
constexpr int LastCommandId = FirstCommandId + static_cast<int>(MainCommandCount) - 1;

int IdOf(MainCommand command) {
    return FirstCommandId + static_cast<int>(command);
}

// Smallest useful width and height of the tree, in device-independent pixels.
constexpr int SmallestSide = 140;

// The size of the window where the screen has room for it, with a font of the usual height.
wxSize UsualSize() {
    return wxWindow::FromDIP(wxSize(720, 640), nullptr);
}
constexpr int UsualCharHeight = 17;

} // namespace

FormMain::FormMain()
    // A size of its own spares the toolkit the questions to the screen that it derives one from.
    : wxFrame(nullptr, wxID_ANY, "", wxDefaultPosition, UsualSize(), wxDEFAULT_FRAME_STYLE, "FormMain") {
    BuildMenuBar();
    BuildControls();
    modUtilities::SetFormFont(*this);
    SetIcon(IconBundle("app", wxSize(48, 48)).GetIconFor(this));
    PlaceOnScreen();
    m_editor.SetListener(this);

    Bind(
        wxEVT_MENU,
        [this](wxCommandEvent& event) {
            OnCommand(static_cast<MainCommand>(event.GetId() - FirstCommandId));
        },
        FirstCommandId, LastCommandId);
    Bind(wxEVT_CLOSE_WINDOW, &FormMain::OnClose, this);
    tvMain->Bind(wxEVT_TREE_SEL_CHANGED, [this](wxTreeEvent&) { UpdateFileMenus(); });
    tvMain->Bind(wxEVT_TREE_BEGIN_LABEL_EDIT, &FormMain::OnBeginLabelEdit, this);
    tvMain->Bind(wxEVT_TREE_END_LABEL_EDIT, &FormMain::OnEndLabelEdit, this);
    tvMain->Bind(wxEVT_TREE_ITEM_MENU, &FormMain::OnContextMenu, this);
    tvMain->Bind(wxEVT_KEY_DOWN, &FormMain::OnTreeKey, this);
    tvMain->Bind(wxEVT_TREE_ITEM_ACTIVATED, &FormMain::OnActivated, this);

    UpdateTitle();
    UpdateFileMenus();
    tvMain->SetFocus();
}

// The tree reports its last events while the window is taken down; nobody may follow them into what is gone.
FormMain::~FormMain() {
    m_editor.SetListener(nullptr);
    tvMain->SetEvtHandlerEnabled(false);
}

wxMenuItem*& FormMain::ItemOf(MainCommand command) {
    switch (command) {
    case MainCommand::FileOpen: return mnuFileOpen;
    case MainCommand::FileSave: return mnuFileSave;
    case MainCommand::FileClose: return mnuFileClose;
    case MainCommand::FileExit: return mnuFileExit;
    case MainCommand::AddPart: return mnuMenuAddPart;
    case MainCommand::AddSubmenu: return mnuMenuAddSubmenu;
    case MainCommand::MoveUp: return mnuMenuUp;
    case MainCommand::MoveDown: return mnuMenuDown;
    case MainCommand::Edit: return mnuMenuEdit;
    case MainCommand::Rename: return mnuMenuRename;
    case MainCommand::Remove: return mnuMenuRemove;
    case MainCommand::SettingsAccess: return mnuSettingsAccess;
    case MainCommand::SettingsOptions: return mnuSettingsOptions;
    case MainCommand::HelpContents: return mnuHelpContents;
    case MainCommand::HelpWindow:
    case MainCommand::Count: break;
    }
    return mnuHelpWindow;
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
        ItemOf(info.command) = menu->Append(IdOf(info.command), ResText(info.text),
                                            ResText(info.text + Message::StatusHelpOffset));
    }
    SetMenuBar(bar);
}

void FormMain::BuildControls() {
    sbMain = new FormStatusBar(this, "sbMain");
    SetStatusBar(sbMain);
    // The path stays while the user looks through the menus.
    SetStatusBarPane(FormStatusBar::HelpPanel);

    ibIncomplete = new wxInfoBar(this);
    ibIncomplete->SetName("ibIncomplete");
    tvMain = new FormMenuTree(this, m_editor);
    tvMain->SetMinSize(FromDIP(wxSize(SmallestSide, SmallestSide)));

    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(ibIncomplete, wxSizerFlags().Expand());
    sizer->Add(tvMain, wxSizerFlags(1).Expand());
    SetSizer(sizer);
}

void FormMain::PlaceOnScreen() {
    const wxRect screen = wxDisplay(this).GetClientArea();
    // What is written in a large font needs more room.
    const double scale = std::max(1.0, static_cast<double>(GetCharHeight()) / FromDIP(UsualCharHeight));
    const wxSize wanted = UsualSize() * scale;
    SetMinClientSize(FromDIP(wxSize(SmallestSide, SmallestSide)));
    SetSize(std::min(wanted.x, screen.width), std::min(wanted.y, screen.height));
    // With a client size of its own the window is shown at once. Otherwise the toolkit waits until the window
    // manager has told the size of its frame, and GTK complains that the menu bar does not fit into 2 pixels
    // meanwhile.
    SetClientSize(GetClientSize());
    CentreOnScreen();
}

void FormMain::UpdateTitle() {
    const std::string caption = LoadResString(Message::WindowCaption);
    SetTitle(ToWx(m_editor.IsDirty() ? FormatResString(Message::DirtyTitle, caption) : caption));
}

void FormMain::UpdateFileMenus() {
    const bool rootExists = modUtilities::DirectoryExists(NeskRegistry::Instance().NeskRoot);
    const MainCommandSet enabled = EnabledCommands(m_editor, tvMain->SelectedKey(), rootExists);
    for (const MainCommandInfo& info : MainCommandTable())
        ItemOf(info.command)->Enable(Contains(enabled, info.command));
    // While a caption is typed, Del deletes characters and not the entry.
    if (m_editingLabel) mnuMenuRemove->Enable(false);
    wxMenuBar* bar = GetMenuBar();
    for (std::size_t i = 0; i < bar->GetMenuCount(); ++i)
        if (bar->GetMenu(i) == mnuMenu) bar->EnableTop(i, m_editor.IsOpen());
}

void FormMain::OnMenuReplaced() {
    tvMain->BuildTree();
    OnStateChanged();
}

void FormMain::OnMenuEvent(const MenuEvent& event) {
    tvMain->Follow(event);
}

void FormMain::OnStateChanged() {
    sbMain->ShowPath(ToWx(m_editor.Path()));
    if (m_editor.IsIncomplete() && !ibIncomplete->IsShown())
        ibIncomplete->ShowMessage(ResText(Message::IncompleteBar), wxICON_WARNING);
    else if (!m_editor.IsIncomplete() && ibIncomplete->IsShown())
        ibIncomplete->Dismiss();
    UpdateTitle();
    UpdateFileMenus();
}

void FormMain::OnCommand(MainCommand command) {
    try {
        Run(command);
    } catch (const NeskError& error) {
        ShowError(Message::CommandFailed, error);
    }
}

void FormMain::Run(MainCommand command) {
    switch (command) {
    case MainCommand::FileOpen: FileOpen(); break;
    case MainCommand::FileSave: FileSave(); break;
    case MainCommand::FileClose: FileClose(); break;
    case MainCommand::FileExit: Close(); break;
    case MainCommand::AddPart:
    case MainCommand::AddSubmenu: AddEntry(command); break;
    case MainCommand::MoveUp:
    case MainCommand::MoveDown: Move(command); break;
    case MainCommand::Rename: Rename(); break;
    case MainCommand::Remove: Remove(); break;
    case MainCommand::HelpContents: HelpContents(); break;
    case MainCommand::HelpWindow: ShowHelpTopic(); break;
    case MainCommand::Edit: EditSelected(); break;
    case MainCommand::SettingsAccess: Access(); break;
    case MainCommand::SettingsOptions: Options(); break;
    case MainCommand::Count: break;
    }
}

void FormMain::FileOpen() {
    if (m_editor.IsOpen()) return;
    const NeskRegistry& settings = NeskRegistry::Instance();
    std::optional<NeskError> failure;
    {
        const wxBusyCursor busy;
        failure = m_editor.Open(settings.NeskRoot, settings.MenuFile());
    }
    if (failure) ShowError(Message::OpenFailed, *failure);
}

bool FormMain::FileSave() {
    if (!FinishLabelEdit()) return false;
    if (!m_editor.IsOpen()) return true;
    const std::string path = NeskRegistry::Instance().MenuFile();
    try {
        if (!ConfirmOverwrite(path)) return false;
        const wxBusyCursor busy;
        m_editor.Save(path);
        return true;
    } catch (const NeskError& error) {
        ShowError(Message::SaveFailed, error);
        return false;
    }
}

bool FormMain::ConfirmOverwrite(const std::string& path) {
    const SaveHazard hazard = m_editor.CheckSave(path);
    if (hazard == SaveHazard::None) return true;
    const int question = hazard == SaveHazard::Incomplete ? Message::SaveIncomplete : Message::SaveChanged;
    const std::string text = FormatResString(question, path, m_editor.BackupFor(path).path);
    return Ask(text, Message::SaveQuestionTitle, wxYES_NO | wxNO_DEFAULT | wxICON_WARNING) == wxID_YES;
}

void FormMain::FileClose() {
    if (!FinishLabelEdit()) return;
    if (m_editor.IsOpen() && ConfirmClose(false)) m_editor.Close();
}

// Asks about unsaved changes. False when the menu has to stay open: the user called it off, or saving failed.
bool FormMain::ConfirmClose(bool mayCancel) {
    if (!m_editor.IsOpen() || !m_editor.IsDirty()) return true;
    const long buttons = mayCancel ? wxYES_NO | wxCANCEL : wxYES_NO;
    switch (Ask(LoadResString(Message::SaveChanges), Message::ConfirmTitle, buttons | wxICON_QUESTION)) {
    case wxID_YES: return FileSave();
    case wxID_NO: return true;
    // Cancel, or a question that was closed without an answer, which must not cost the changes.
    default: return false;
    }
}

void FormMain::OnClose(wxCloseEvent& event) {
    const bool mayClose = FinishLabelEdit() && ConfirmClose(true);
    if (!mayClose && event.CanVeto()) return event.Veto();
    // What was to be said about the caption goes with the window.
    DeletePendingEvents();
    Destroy();
}

void FormMain::AddEntry(MainCommand command) {
    if (!FinishLabelEdit()) return;
    const bool part = command == MainCommand::AddPart;
    const std::string caption = LoadResString(part ? Message::NewPartCaption : Message::NewSubmenuCaption);
    const std::string parent = tvMain->SelectedKey();
    const std::string id = part ? m_editor.AddPart(parent, caption) : m_editor.AddSubmenu(parent, caption);
    if (id.empty()) return;
    tvMain->SelectKey(id);
    tvMain->SetFocus();
    tvMain->EditLabel(tvMain->GetSelection());
}

void FormMain::Move(MainCommand command) {
    if (!FinishLabelEdit()) return;
    const std::string id = tvMain->SelectedKey();
    if (command == MainCommand::MoveUp)
        m_editor.MoveUp(id);
    else
        m_editor.MoveDown(id);
}

void FormMain::Remove() {
    const std::string id = tvMain->SelectedKey();
    if (id.empty()) return;
    if (m_editor.Find(id) == m_editor.OpenMenu()) {
        Ask(LoadResString(Message::RootNotRemovable), Message::NoticeTitle, wxOK | wxICON_INFORMATION);
        return;
    }
    if (Ask(LoadResString(Message::ConfirmRemove), Message::ConfirmTitle, wxYES_NO | wxICON_QUESTION) ==
        wxID_YES)
        m_editor.Remove(id);
}

void FormMain::Rename() {
    const wxTreeItemId node = tvMain->GetSelection();
    if (node.IsOk() && !m_editingLabel) tvMain->EditLabel(node);
}

void FormMain::EditSelected() {
    if (!FinishLabelEdit()) return;
    const std::string id = tvMain->SelectedKey();
    const auto* item = dynamic_cast<const MenuItem*>(m_editor.Find(id));
    if (item == nullptr) return;
    if (item->IsPart()) {
        PartFields fields = PartFieldsOf(*item);
        FormEditPart dialog(this, wxGetDisplaySize().x);
        if (dialog.Edit(std::string(item->Caption()), fields)) m_editor.SetPart(id, fields);
    } else {
        std::string graphic(item->Graphic());
        FormSelectMenuPicture dialog(this);
        if (dialog.Display(graphic)) m_editor.SetGraphic(id, graphic);
    }
}

void FormMain::Options() {
    // Another root folder may exist where the old one did not, and the other way round.
    if (FormDirectories(this).Invoke()) UpdateFileMenus();
}

void FormMain::Access() {
    FormAccess(this).Invoke();
}

void FormMain::HelpContents() {
    if (!modHelp::IsHtmlHelp()) {
        modHelp::ShowHelpTopic(GetHandle(), modHelp::Topic::General);
    } else if (modHelp::ShowHelpContents(GetHandle())) {
        // What kept the contents from being shown would keep the topic, and has been said.
        modHelp::ShowHelpTopic(GetHandle(), modHelp::Topic::Overview);
    }
}

void FormMain::ShowHelpTopic() {
    modHelp::ShowHelpTopic(GetHandle(), modHelp::Topic::MainWindow);
}

int FormMain::Ask(const std::string& text, int titleId, long style) {
    wxMessageDialog dialog(this, ToWx(text), ResText(titleId), style);
    return dialog.ShowModal();
}

void FormMain::ShowError(int messageId, const NeskError& error) {
    Ask(FormatResString(messageId, modUtilities::ErrorText(error)), Message::ErrorTitle, wxOK | wxICON_ERROR);
}

} // namespace nesk
