#include "checking/FormChangeFolder.h"

#include "base/Messages.h"
#include "checking/EntryPlace.h"
#include "editing/MenuEditor.h"
#include "menu/MenuEntry.h"
#include "partedit/FormBrowse.h"
#include "platform/TextEncoding.h"
#include "shell/modHelp.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <chrono>

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::FromWx;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

enum Column { FolderColumn, PathsColumn, StateColumn };
enum PathColumn { EntryColumn, SubmenuColumn, BeforeColumn, AfterColumn };

constexpr std::chrono::milliseconds Slice{10};

// The folder may be moved later, so a place that does not exist is possible.
bool ConfirmMissing(const std::string& place) {
    {
        const wxBusyCursor busy;
        if (modUtilities::DirectoryExists(place)) return true;
    }
    namespace Option = modMessageBox::Option;
    return modMessageBox::ShowMessage(FormatResString(Message::FolderPlaceMissing, place),
                                      Option::OkCancel | Option::Question | Option::SecondDefault) ==
           modMessageBox::Result::Ok;
}

} // namespace

FormChangeFolder::FormChangeFolder(wxWindow* parent, MenuEditor& editor)
    : FormDialog(parent, "FormChangeFolder", Message::FolderTitle, modHelp::Topic::MainWindow)
    , m_editor(editor)
    , m_use(*editor.OpenMenu())
    , m_states(m_use.Folders().size(), State::Unknown) {
    auto* content = new wxBoxSizer(wxVERTICAL);
    BuildFolders(*content);
    BuildPlace(*content);
    BuildPaths(*content);
    Finish(content);
    cmdOK->SetLabel(ResText(Message::FolderOK));
    Bind(wxEVT_IDLE, &FormChangeFolder::OnIdle, this);
    if (!m_states.empty()) lstFolders->SelectRow(0);
    OnSelection();
}

void FormChangeFolder::BuildFolders(wxSizer& content) {
    lblFolders =
        NewLabel(this, "lblFolders", m_use.Folders().empty() ? Message::FolderNone : Message::FolderList);
    lstFolders = new UiRowList(this, "lstFolders", FromDIP(wxSize(700, 170)), {});
    lstFolders->text = [this](long row, int column) { return TextAt(static_cast<std::size_t>(row), column); };
    // In the order of Column.
    lstFolders->AddColumn(Message::FolderColumn, FromDIP(480));
    lstFolders->AddColumn(Message::FolderPaths, FromDIP(80), wxLIST_FORMAT_RIGHT);
    lstFolders->AddColumn(Message::FolderState, FromDIP(100));
    lstFolders->SetRowCount(m_states.size());
    lstFolders->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { OnSelection(); });
    lstFolders->Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent&) { OnSelection(); });
    lstFolders->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { txtPlace->SetFocus(); });
    content.Add(lblFolders);
    content.Add(lstFolders, wxSizerFlags(1).Expand().Border(wxTOP, Gap() / 2));
}

void FormChangeFolder::BuildPlace(wxSizer& content) {
    lblPlace = NewLabel(this, "lblPlace", Message::FolderPlace);
    txtPlace = NewTextBox(this, "txtPlace");
    cmdBrowse = NewButton(this, "cmdBrowse", Message::FolderBrowse);
    auto* place = new wxBoxSizer(wxHORIZONTAL);
    place->Add(txtPlace, wxSizerFlags(1).CenterVertical());
    place->Add(cmdBrowse, wxSizerFlags().CenterVertical().Border(wxLEFT, Gap()));
    txtPlace->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { lstPaths->Refresh(); });
    cmdBrowse->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnBrowse(); });
    content.Add(lblPlace, wxSizerFlags().Border(wxTOP, Gap()));
    content.Add(place, wxSizerFlags().Expand().Border(wxTOP, Gap() / 2));
}

void FormChangeFolder::BuildPaths(wxSizer& content) {
    lblCount = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE,
                                "lblCount");
    lstPaths = new UiRowList(this, "lstPaths", FromDIP(wxSize(700, 150)), {});
    lstPaths->text = [this](long row, int column) {
        return PathTextAt(static_cast<std::size_t>(row), column);
    };
    // In the order of PathColumn.
    lstPaths->AddColumn(Message::ReplaceEntry, FromDIP(150));
    lstPaths->AddColumn(Message::EntrySubmenu, FromDIP(120));
    lstPaths->AddColumn(Message::ReplaceBefore, FromDIP(195));
    lstPaths->AddColumn(Message::ReplaceAfter, FromDIP(195));
    content.Add(lblCount, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    content.Add(lstPaths, wxSizerFlags(1).Expand().Border(wxTOP, Gap() / 2));
}

FormChangeFolder::~FormChangeFolder() = default;

std::string FormChangeFolder::TextAt(std::size_t row, int column) const {
    const FolderUse::Folder& folder = m_use.Folders()[row];
    if (column == FolderColumn) return folder.path;
    if (column == PathsColumn) return std::to_string(folder.paths);
    switch (m_states[row]) {
    case State::Exists: return LoadResString(Message::FolderExists);
    case State::Missing: return LoadResString(Message::FolderIsMissing);
    default: return LoadResString(Message::FolderChecking);
    }
}

std::string FormChangeFolder::PathTextAt(std::size_t row, int column) const {
    const TextChange& path = m_paths[row];
    switch (column) {
    case EntryColumn: return std::string(path.entry->Caption());
    case SubmenuColumn: return EntryPlace(*path.entry);
    case BeforeColumn: return path.before;
    default: return FolderUse::Moved(path.before, m_folder, FromWx(txtPlace->GetValue()));
    }
}

int FormChangeFolder::SelectedRow() const {
    return static_cast<int>(lstFolders->GetFirstSelected());
}

// While there is nothing else to do: the paths of a large menu take a moment.
void FormChangeFolder::OnIdle(wxIdleEvent& event) {
    event.Skip();
    const int row = SelectedRow();
    const std::string folder =
        row != wxNOT_FOUND ? m_use.Folders()[static_cast<std::size_t>(row)].path : std::string();
    if (m_folder != folder) {
        lstPaths->SetRowCount(0); // no row may be drawn while the paths are replaced
        m_paths = FolderUse::PathsIn(*m_editor.OpenMenu(), folder);
        m_folder = folder;
        lstPaths->SetRowCount(m_paths.size());
    }
    LookUpFolders();
    if (m_lookedUp < m_states.size()) event.RequestMore();
}

// Each folder may be on a slow drive.
void FormChangeFolder::LookUpFolders() {
    const auto end = std::chrono::steady_clock::now() + Slice;
    while (m_lookedUp < m_states.size() && std::chrono::steady_clock::now() < end) {
        const bool exists = modUtilities::DirectoryExists(m_use.Folders()[m_lookedUp].path);
        m_states[m_lookedUp] = exists ? State::Exists : State::Missing;
        lstFolders->RefreshItem(static_cast<long>(m_lookedUp++));
    }
}

// Begins with the place that the folder has now, which is often changed only in part.
void FormChangeFolder::OnSelection() {
    const int row = SelectedRow();
    const bool isChosen = row != wxNOT_FOUND;
    if (isChosen) {
        const FolderUse::Folder& folder = m_use.Folders()[static_cast<std::size_t>(row)];
        txtPlace->ChangeValue(ToWx(folder.path));
        lblCount->SetLabel(ToWx(FormatResString(Message::FolderCount, folder.paths)));
    }
    txtPlace->Enable(isChosen);
    cmdBrowse->Enable(isChosen);
    cmdOK->Enable(isChosen);
}

void FormChangeFolder::OnBrowse() {
    const std::string chosen =
        FormBrowse(this).Invoke(LoadResString(Message::FolderPrompt), FromWx(txtPlace->GetValue()));
    if (chosen.empty()) return;
    txtPlace->SetValue(ToWx(chosen));
    txtPlace->SetFocus();
}

bool FormChangeFolder::Invoke(const std::string& folder) {
    lstFolders->SetFocus();
    const std::vector<FolderUse::Folder>& folders = m_use.Folders();
    const auto found = std::find_if(folders.begin(), folders.end(), [&](const FolderUse::Folder& other) {
        return platform::EqualNoCase(other.path, folder);
    });
    if (found != folders.end()) {
        lstFolders->SelectRow(static_cast<long>(found - folders.begin()));
        txtPlace->SetFocus();
    }
    return ShowModal() == wxID_OK;
}

void FormChangeFolder::OnOK() {
    const int row = SelectedRow();
    if (row == wxNOT_FOUND) return;
    const std::string& folder = m_use.Folders()[static_cast<std::size_t>(row)].path;
    const std::string place = FromWx(txtPlace->GetValue());
    if (const int reason = FolderUse::WhyNot(folder, place); reason != 0) {
        txtPlace->SetFocus();
        return ShowReason(LoadResString(reason));
    }
    if (!ConfirmMissing(place)) return txtPlace->SetFocus();
    const wxBusyCursor busy;
    const std::vector<TextChange> changes = FolderUse::Plan(*m_editor.OpenMenu(), folder, place);
    const auto refusal = Replacement::Apply(m_editor, changes, {Message::ChangeFolderOf, {folder}});
    if (!refusal) return Accept();
    txtPlace->SetFocus();
    const TextChange& change = changes[refusal->index];
    ShowReason(FormatResString(Message::ReplaceRefused,
                               modUtilities::Shortened(std::string(change.entry->Caption()), 60),
                               TextFieldName(change.field), modUtilities::Shortened(change.after, 120),
                               modUtilities::MessageText(refusal->error)));
}

} // namespace nesk
