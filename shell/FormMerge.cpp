#include "shell/FormMerge.h"

#include "base/UnsavedMessages.h"
#include "checking/EntryPlace.h"
#include "menu/Menu.h"
#include "shell/FormDifference.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "versions/ConflictText.h"
#include "versions/DifferenceText.h"
#include "versions/MenuDiff.h"
#include "versions/MenuMerge.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

constexpr std::int32_t HelpTopic = 33015;

// Longer texts are wrapped.
constexpr int TextWidth = 700;

enum Column { EntryColumn, PlaceColumn, WhatColumn, OursColumn, TheirsColumn, ChosenColumn };

// The entry that a conflict is about, in the first menu that has it.
const MenuEntry& EntryOf(const MergeConflict& conflict) {
    for (const MenuEntry* entry : {conflict.ours, conflict.theirs})
        if (entry != nullptr) return *entry;
    return *conflict.base;
}

} // namespace

FormMerge::FormMerge(wxWindow* parent, MenuMerge& merge, const Menu& base, const Menu& ours,
                     const Menu& theirs)
    : FormDialog(parent, "FormMerge", Message::MergeTitle, HelpTopic)
    , m_merge(merge)
    , m_base(base)
    , m_theirs(theirs) {
    lblHeading = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblHeading");
    lblHeading->SetLabelText(
        ToWx(FormatResString(Message::MergeHeading, DifferenceText::Summary(MenuDiff(base, theirs)),
                             DifferenceText::Summary(MenuDiff(base, ours)))));
    lblHeading->Wrap(FromDIP(TextWidth));
    // An entry that only one side removed stays unless the user wants otherwise.
    for (std::size_t i = 0; i < m_merge.Conflicts().size(); ++i)
        if (const MergeConflict& conflict = m_merge.Conflicts()[i];
            conflict.kind == MergeConflict::Kind::Removal)
            m_merge.Choose(i, conflict.ours == nullptr ? Side::Theirs : Side::Ours);
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(lblHeading, wxSizerFlags().Expand());
    BuildConflicts(*content);
    Finish(content);
    cmdOK->SetLabel(ResText(Message::MergeOK));
    cmdCancel->SetLabel(ResText(Message::MergeNotNow));
    FitToContent();
}

void FormMerge::BuildConflicts(wxSizer& content) {
    const std::size_t count = m_merge.Conflicts().size();
    lblConflicts = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblConflicts");
    lblConflicts->SetLabelText(ToWx(count == 0 ? LoadResString(Message::MergeNoConflicts)
                                               : FormatResString(Message::MergeConflicts, count)));
    lblConflicts->Wrap(FromDIP(TextWidth));
    content.Add(lblConflicts, wxSizerFlags().Border(wxTOP, 2 * Gap()));
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    if (count > 0) {
        lstConflicts = new UiRowList(this, "lstConflicts", FromDIP(wxSize(760, 220)), {.multiple = true});
        lstConflicts->text = [this](long row, int column) {
            return TextAt(m_merge.Conflicts()[static_cast<std::size_t>(row)], column);
        };
        // In the order of Column.
        lstConflicts->AddColumn(Message::MergeEntry, FromDIP(130));
        lstConflicts->AddColumn(Message::MergePlace, FromDIP(110));
        lstConflicts->AddColumn(Message::MergeWhat, FromDIP(90));
        lstConflicts->AddColumn(Message::MergeOurs, FromDIP(165));
        lstConflicts->AddColumn(Message::MergeTheirs, FromDIP(165));
        lstConflicts->AddColumn(Message::MergeChosen, FromDIP(90));
        lstConflicts->SetRowCount(count);
        lstConflicts->SelectRow(0);
        lstConflicts->Bind(wxEVT_LIST_ITEM_ACTIVATED,
                           [this](wxListEvent& event) { Exchange(event.GetIndex()); });
        lstConflicts->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
            if (event.GetKeyCode() == WXK_SPACE && !event.HasAnyModifiers())
                ExchangeSelected();
            else if ((event.GetKeyCode() == WXK_RETURN || event.GetKeyCode() == WXK_NUMPAD_ENTER) &&
                     !event.HasAnyModifiers())
                OnOK();
            else
                event.Skip();
        });
        lblHint = NewLabel(this, "lblHint", Message::MergeHint);
        cmdAllOurs = NewButton(this, "cmdAllOurs", Message::MergeAllMine);
        cmdAllTheirs = NewButton(this, "cmdAllTheirs", Message::MergeAllTheirs);
        cmdAllOurs->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ChooseAll(true); });
        cmdAllTheirs->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ChooseAll(false); });
        content.Add(lstConflicts, wxSizerFlags(1).Expand().Border(wxTOP, Gap() / 2));
        content.Add(lblHint, wxSizerFlags().Border(wxTOP, Gap() / 2));
        buttons->Add(cmdAllOurs);
        buttons->Add(cmdAllTheirs, wxSizerFlags().Border(wxLEFT, Gap()));
    }
    cmdLook = NewButton(this, "cmdLook", Message::MergeLook);
    cmdLook->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Look(); });
    buttons->Add(cmdLook, wxSizerFlags().Border(wxLEFT, count > 0 ? Gap() : 0));
    content.Add(buttons, wxSizerFlags().Border(wxTOP, Gap()));
}

std::string FormMerge::TextAt(const MergeConflict& conflict, int column) {
    switch (column) {
    case EntryColumn: return DifferenceText::Value(std::string(EntryOf(conflict).Caption()));
    case PlaceColumn: return EntryPlace(EntryOf(conflict));
    case WhatColumn: return ConflictText::Subject(conflict);
    case OursColumn: return ConflictText::Value(conflict, Side::Ours);
    case TheirsColumn: return ConflictText::Value(conflict, Side::Theirs);
    default: return LoadResString(conflict.chosen == Side::Ours ? Message::MergeMine : Message::MergeFile);
    }
}

void FormMerge::Exchange(long row) {
    const auto index = static_cast<std::size_t>(row);
    const Side present = m_merge.Conflicts()[index].chosen;
    m_merge.Choose(index, present == Side::Ours ? Side::Theirs : Side::Ours);
    lstConflicts->RefreshItem(row);
}

// Afterwards the same side holds in all selected rows.
void FormMerge::ExchangeSelected() {
    const std::vector<long> rows = lstConflicts->SelectedRows();
    const auto isOurs = [this](long row) {
        return m_merge.Conflicts()[static_cast<std::size_t>(row)].chosen == Side::Ours;
    };
    const Side side = std::any_of(rows.begin(), rows.end(), isOurs) ? Side::Theirs : Side::Ours;
    for (const long row : rows)
        m_merge.Choose(static_cast<std::size_t>(row), side);
    lstConflicts->Refresh();
}

void FormMerge::ChooseAll(bool ours) {
    for (std::size_t i = 0; i < m_merge.Conflicts().size(); ++i)
        m_merge.Choose(i, ours ? Side::Ours : Side::Theirs);
    lstConflicts->Refresh();
}

void FormMerge::Look() {
    const MenuDiff difference(m_base, m_theirs);
    FormDifference(this, difference, LoadResString(Message::MergeLookHeading)).Invoke();
}

bool FormMerge::Invoke() {
    if (lstConflicts != nullptr)
        lstConflicts->SetFocus();
    else
        cmdOK->SetFocus();
    return ShowModal() == wxID_OK;
}

} // namespace nesk
