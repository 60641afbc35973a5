#include "shell/FormVersions.h"

#include "base/Messages.h"
#include "base/UnsavedMessages.h"
#include "editing/MenuEditor.h"
#include "menu/Menu.h"
#include "menu/ReadMenuQuietly.h"
#include "shell/FormDifference.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "versions/DifferenceText.h"
#include "versions/MenuDiff.h"
#include "versions/MenuUpdate.h"
#include "versions/WithEntriesOf.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <cstdint>
#include <utility>

#include <wx/button.h>
#include <wx/datetime.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::FromWx;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33016;

enum Column { DateColumn, SizeColumn, EntriesColumn, ChangesColumn };

std::string DateText(const MenuVersion& version) {
    return FromWx(wxDateTime(version.time).Format("%x %X"));
}

// In units of 1024 bytes; a file that is not empty has at least one.
std::string SizeText(const MenuVersion& version) {
    constexpr unsigned long long unit = 1024;
    return FormatResString(Message::VersionsBytes, (version.size + unit - 1) / unit);
}

} // namespace

FormVersions::FormVersions(wxWindow* parent, MenuEditor& editor)
    : FormDialog(parent, "FormVersions", Message::VersionsTitle, HelpTopic), m_editor(editor) {
    for (MenuVersion& version : VersionStore(editor.Place()).List())
        m_rows.push_back({std::move(version), "", ""});
    lblVersions = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblVersions");
    lblVersions->SetLabel(ToWx(FormatResString(Message::VersionsList, editor.Place())));
    lstVersions = new UiRowList(this, "lstVersions", FromDIP(wxSize(640, 300)), {.multiple = true});
    lstVersions->text = [this](long row, int column) {
        return TextAt(m_rows[static_cast<std::size_t>(row)], column);
    };
    // In the order of Column.
    lstVersions->AddColumn(Message::VersionsDate, FromDIP(160));
    lstVersions->AddColumn(Message::VersionsSize, FromDIP(80), wxLIST_FORMAT_RIGHT);
    lstVersions->AddColumn(Message::VersionsEntries, FromDIP(80), wxLIST_FORMAT_RIGHT);
    lstVersions->AddColumn(Message::VersionsChanges, FromDIP(300));
    lstVersions->SetRowCount(m_rows.size());
    lblHint = NewLabel(this, "lblHint", m_rows.empty() ? Message::VersionsNone : Message::VersionsHint);
    cmdCompare = NewButton(this, "cmdCompare", Message::VersionsCompare);
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblVersions);
    content->Add(lstVersions, wxSizerFlags(1).Expand().Border(wxTOP, Gap() / 2));
    content->Add(lblHint, wxSizerFlags().Border(wxTOP, Gap() / 2));
    content->Add(cmdCompare, wxSizerFlags().Border(wxTOP, Gap()));
    Finish(content);
    cmdOK->SetLabel(ResText(Message::VersionsRestore));
    cmdCancel->SetLabel(ResText(Message::DifferenceClose));
    FitToContent();
    Bind(wxEVT_IDLE, &FormVersions::OnIdle, this);
    cmdCompare->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Compare(); });
    lstVersions->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { Compare(); });
    lstVersions->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { OnSelection(); });
    lstVersions->Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent&) { OnSelection(); });
    if (!m_rows.empty()) lstVersions->SelectRow(0);
    OnSelection();
}

FormVersions::~FormVersions() = default;

bool FormVersions::Invoke() {
    if (m_rows.empty())
        cmdCancel->SetFocus();
    else
        lstVersions->SetFocus();
    return ShowModal() == wxID_OK;
}

std::string FormVersions::TextAt(const Row& row, int column) {
    switch (column) {
    case DateColumn: return DateText(row.version);
    case SizeColumn: return SizeText(row.version);
    case EntriesColumn: return row.entries;
    default: return row.changes.empty() ? LoadResString(Message::VersionsReading) : row.changes;
    }
}

// One version at a time while there is nothing else to do: hundreds of large ones take a while.
void FormVersions::OnIdle(wxIdleEvent& event) {
    event.Skip();
    // A selection by Shift and an arrow key sends no event.
    OnSelection();
    if (IsListed()) return;
    ReadNext();
    if (!IsListed()) event.RequestMore();
}

// Compares a version with the next newer one; the newest with the open menu.
void FormVersions::ReadNext() {
    Row& row = m_rows[m_read];
    QuietMenu read = ReadMenuQuietly(row.version.path, m_editor.OpenMenu()->RootDirectory());
    const Menu* newer = m_read == 0 ? m_editor.OpenMenu() : m_newer.get();
    if (!read.IsWhole()) {
        row.changes = LoadResString(Message::VersionsNotRead);
        read.menu.reset();
    } else {
        row.entries = std::to_string(read.menu->CountBelow());
        row.changes = newer != nullptr ? DifferenceText::Summary(MenuDiff(*read.menu, *newer))
                                       : LoadResString(Message::VersionsUnknown);
    }
    m_newer = std::move(read.menu);
    lstVersions->RefreshItem(static_cast<long>(m_read++));
}

void FormVersions::OnSelection() {
    const std::size_t count = lstVersions->SelectedRows().size();
    cmdOK->Enable(count == 1);
    cmdCompare->Enable(count == 1 || count == 2);
}

// Says so when the version cannot be read.
std::unique_ptr<Menu> FormVersions::Read(const Row& row) {
    const wxBusyCursor busy;
    QuietMenu read = ReadMenuQuietly(row.version.path, m_editor.OpenMenu()->RootDirectory());
    if (read.IsWhole()) return std::move(read.menu);
    const std::string reason = read.error  ? modUtilities::MessageText(*read.error)
                               : read.menu ? LoadResString(Message::VersionsNotRead)
                                           : FormatResString(Message::FileNotFound, row.version.path);
    ShowReason(FormatResString(Message::VersionsUnreadable, reason));
    return nullptr;
}

void FormVersions::Compare() {
    const std::vector<long> rows = lstVersions->SelectedRows();
    ShowReason("");
    if (rows.size() == 1)
        CompareWithOpen(m_rows[static_cast<std::size_t>(rows[0])]);
    else if (rows.size() == 2)
        CompareTwo(m_rows[static_cast<std::size_t>(rows[1])], m_rows[static_cast<std::size_t>(rows[0])]);
}

void FormVersions::CompareWithOpen(const Row& row) {
    const std::unique_ptr<Menu> version = Read(row);
    if (!version) return;
    const std::string date = DateText(row.version);
    const MenuDiff difference(*version, *m_editor.OpenMenu());
    const std::vector<std::size_t> chosen =
        FormDifference(
            this, difference,
            FormatResString(Message::VersionsCompareTitle, date, LoadResString(Message::VersionsPresent)))
            .ChooseNodes();
    if (chosen.empty()) return;
    try {
        const wxBusyCursor busy;
        const std::unique_ptr<Menu> result = WithEntriesOf(difference, chosen);
        UpdateOpenMenu(m_editor, *result, {Message::VersionsUndoSome, {date}});
    } catch (const NeskError& error) {
        return ShowReason(modUtilities::MessageText(error));
    }
    Accept();
}

void FormVersions::CompareTwo(const Row& older, const Row& newer) {
    const std::unique_ptr<Menu> before = Read(older);
    const std::unique_ptr<Menu> after = before ? Read(newer) : nullptr;
    if (!after) return;
    const MenuDiff difference(*before, *after);
    FormDifference(
        this, difference,
        FormatResString(Message::VersionsCompareTitle, DateText(older.version), DateText(newer.version)))
        .Invoke();
}

void FormVersions::OnOK() {
    const std::vector<long> rows = lstVersions->SelectedRows();
    if (rows.size() != 1) return;
    const Row& row = m_rows[static_cast<std::size_t>(rows[0])];
    const std::unique_ptr<Menu> version = Read(row);
    if (!version) return;
    try {
        const wxBusyCursor busy;
        if (!UpdateOpenMenu(m_editor, *version, {Message::VersionsUndo, {DateText(row.version)}}))
            return ShowReason(LoadResString(Message::VersionsSame));
    } catch (const NeskError& error) {
        return ShowReason(modUtilities::MessageText(error));
    }
    Accept();
}

} // namespace nesk
