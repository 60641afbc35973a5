#include "checking/FormChangeFolder.h"

#include "base/Messages.h"
#include "checking/UiRowModel.h"
#include "editing/MenuEditor.h"
#include "partedit/FormBrowse.h"
#include "shell/modHelp.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiUtilities.h"

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

constexpr std::chrono::milliseconds Slice{10};

} // namespace

FormChangeFolder::FormChangeFolder(wxWindow* parent, MenuEditor& editor)
    : FormDialog(parent, "FormChangeFolder", Message::FolderTitle, modHelp::Topic::MainWindow)
    , m_editor(editor)
    , m_use(*editor.OpenMenu())
    , m_states(m_use.Folders().size(), State::Unknown)
    , m_model(new UiRowModel) {
    lblFolders =
        NewLabel(this, "lblFolders", m_use.Folders().empty() ? Message::FolderNone : Message::FolderList);
    lstFolders = new wxDataViewCtrl(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(560, 260)),
                                    wxDV_SINGLE | wxDV_ROW_LINES, wxDefaultValidator);
    lstFolders->SetName("lstFolders");
    m_model->text = [this](unsigned row, unsigned column) { return TextAt(row, column); };
    m_model->Reset(static_cast<unsigned>(m_states.size()));
    lstFolders->AssociateModel(m_model.get());
    const auto append = [this](int titleId, unsigned column, int pixels, wxAlignment alignment) {
        lstFolders
            ->AppendTextColumn(ResText(titleId), column, wxDATAVIEW_CELL_INERT, FromDIP(pixels), alignment,
                               wxDATAVIEW_COL_RESIZABLE)
            ->GetRenderer()
            ->EnableEllipsize(wxELLIPSIZE_MIDDLE);
    };
    append(Message::FolderColumn, FolderColumn, 360, wxALIGN_LEFT);
    append(Message::FolderPaths, PathsColumn, 80, wxALIGN_RIGHT);
    append(Message::FolderState, StateColumn, 100, wxALIGN_LEFT);
    lblCount = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE,
                                "lblCount");
    lblPlace = NewLabel(this, "lblPlace", Message::FolderPlace);
    txtPlace = NewTextBox(this, "txtPlace");
    cmdBrowse = NewButton(this, "cmdBrowse", Message::FolderBrowse);

    auto* place = new wxBoxSizer(wxHORIZONTAL);
    place->Add(txtPlace, wxSizerFlags(1).CenterVertical());
    place->Add(cmdBrowse, wxSizerFlags().CenterVertical().Border(wxLEFT, Gap()));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblFolders);
    content->Add(lstFolders, wxSizerFlags(1).Expand().Border(wxTOP, Gap() / 2));
    content->Add(lblCount, wxSizerFlags().Expand().Border(wxTOP, Gap() / 2));
    content->Add(lblPlace, wxSizerFlags().Border(wxTOP, Gap()));
    content->Add(place, wxSizerFlags().Expand().Border(wxTOP, Gap() / 2));
    Finish(content);
    cmdOK->SetLabel(ResText(Message::FolderOK));

    lstFolders->Bind(wxEVT_DATAVIEW_SELECTION_CHANGED, [this](wxDataViewEvent&) { OnSelection(); });
    lstFolders->Bind(wxEVT_DATAVIEW_ITEM_ACTIVATED, [this](wxDataViewEvent&) { txtPlace->SetFocus(); });
    cmdBrowse->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnBrowse(); });
    Bind(wxEVT_IDLE, &FormChangeFolder::OnIdle, this);
    if (!m_states.empty()) lstFolders->Select(m_model->GetItem(0));
    OnSelection();
}

FormChangeFolder::~FormChangeFolder() = default;

std::string FormChangeFolder::TextAt(unsigned row, unsigned column) const {
    const FolderUse::Folder& folder = m_use.Folders()[row];
    if (column == FolderColumn) return folder.path;
    if (column == PathsColumn) return std::to_string(folder.paths);
    switch (m_states[row]) {
    case State::Exists: return LoadResString(Message::FolderExists);
    case State::Missing: return LoadResString(Message::FolderIsMissing);
    default: return LoadResString(Message::FolderChecking);
    }
}

int FormChangeFolder::SelectedRow() const {
    const wxDataViewItem item = lstFolders->GetSelection();
    return item.IsOk() ? static_cast<int>(m_model->GetRow(item)) : wxNOT_FOUND;
}

// Looks up the folders while there is nothing else to do: each may be on a slow drive.
void FormChangeFolder::OnIdle(wxIdleEvent& event) {
    event.Skip();
    const auto end = std::chrono::steady_clock::now() + Slice;
    while (m_lookedUp < m_states.size() && std::chrono::steady_clock::now() < end) {
        const bool exists = modUtilities::DirectoryExists(m_use.Folders()[m_lookedUp].path);
        m_states[m_lookedUp] = exists ? State::Exists : State::Missing;
        m_model->RowValueChanged(static_cast<unsigned>(m_lookedUp++), StateColumn);
    }
    if (m_lookedUp < m_states.size()) event.RequestMore();
}

// Begins with the place that the folder has now, which is often changed only in part.
void FormChangeFolder::OnSelection() {
    const int row = SelectedRow();
    const bool isChosen = row != wxNOT_FOUND;
    if (isChosen) {
        const FolderUse::Folder& folder = m_use.Folders()[static_cast<std::size_t>(row)];
        txtPlace->ChangeValue(ToWx(folder.path));
        lblCount->SetLabelText(ToWx(FormatResString(Message::FolderCount, folder.paths)));
    }
    txtPlace->Enable(isChosen);
    cmdBrowse->Enable(isChosen);
    cmdOK->Enable(isChosen);
}

void FormChangeFolder::OnBrowse() {
    const std::string chosen =
        FormBrowse(this).Invoke(LoadResString(Message::FolderPrompt), FromWx(txtPlace->GetValue()));
    if (chosen.empty()) return;
    txtPlace->ChangeValue(ToWx(chosen));
    txtPlace->SetFocus();
}

bool FormChangeFolder::Invoke() {
    lstFolders->SetFocus();
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
