#include "shell/FormProblems.h"

#include "base/Messages.h"
#include "base/ProblemMessages.h"
#include "checking/EntryPlace.h"
#include "checking/ProblemFix.h"
#include "menu/MenuEntry.h"
#include "platform/AccessibleName.h"
#include "shell/modStringRes.h"
#include "widgets/UiIcons.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <algorithm>

#include <wx/artprov.h>
#include <wx/bmpbuttn.h>
#include <wx/button.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

// In the order of FindingOrder.
enum Column { SeverityColumn, EntryColumn, PlaceColumn, FieldColumn, TextColumn };

// The texts of the fixes, in the order of Fix.
constexpr std::array FixTexts{Message::FixChooseFile, Message::FixChangeFolder, Message::FixClear,
                              Message::FixMakeFolder, Message::FixRename,       Message::FixEdit};

// Smallest width of the last column, in device-independent pixels.
constexpr int TextWidth = 240;

int SeverityText(Severity severity) {
    switch (severity) {
    case Severity::Error: return Message::SeverityError;
    case Severity::Warning: return Message::SeverityWarning;
    default: return Message::SeverityHint;
    }
}

} // namespace

FormProblems::FormProblems(wxWindow* parent, const MenuCheck& check)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "FormProblems")
    , m_check(check) {
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    BuildHeading(*sizer);
    lstProblems = new UiRowList(this, "lstProblems", FromDIP(wxSize(400, 60)), {.multiple = true});
    lstProblems->text = [this](long row, int column) -> std::string {
        const Row* texts = RowAt(row);
        return texts != nullptr ? (*texts)[static_cast<std::size_t>(column)] : "";
    };
    // In the order of Column.
    lstProblems->AddColumn(Message::ProblemsSeverityColumn, FromDIP(80));
    lstProblems->AddColumn(Message::ReplaceEntry, FromDIP(130));
    lstProblems->AddColumn(Message::EntrySubmenu, FromDIP(120));
    lstProblems->AddColumn(Message::ReplaceField, FromDIP(100));
    lstProblems->AddColumn(Message::ProblemsTextColumn, FromDIP(TextWidth));
    lstProblems->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        FitTextColumn();
    });
    sizer->Add(lstProblems, wxSizerFlags(1).Expand());
    SetSizer(sizer);

    // As in other lists: ascending, descending, and as at first.
    lstProblems->Bind(wxEVT_LIST_COL_CLICK, [this](wxListEvent& event) {
        if (event.GetColumn() < 0 || event.GetColumn() >= ColumnCount) return;
        const auto clicked = static_cast<FindingOrder>(event.GetColumn());
        const bool isSorted = m_sorting == clicked;
        SortBy(isSorted && m_isReversed ? FindingOrder::Menu : clicked, isSorted && !m_isReversed);
    });
    lstProblems->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { GoTo(); });
    lstProblems->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { UpdateButtons(); });
    lstProblems->Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent&) { UpdateButtons(); });
    lstProblems->Bind(wxEVT_CONTEXT_MENU, &FormProblems::OnContextMenu, this);
    cmdGoTo->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { GoTo(); });
    cmdFix->Bind(wxEVT_BUTTON,
                 [this](wxCommandEvent&) { ShowFixes(*cmdFix, wxPoint(0, cmdFix->GetSize().y)); });
    cmdCloseProblems->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        if (onClose) onClose();
    });
    ShowTexts();
    ShowFindings();
}

// The list reports events of its rows while it is being destroyed. The handlers must not run then.
FormProblems::~FormProblems() {
    lstProblems->SetEvtHandlerEnabled(false);
}

void FormProblems::BuildHeading(wxSizer& sizer) {
    lblProblems = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                   wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END, "lblProblems");
    const auto newButton = [this](const char* name) {
        return new wxButton(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT,
                            wxDefaultValidator, name);
    };
    cmdGoTo = newButton("cmdGoTo");
    cmdFix = newButton("cmdFix");
    cmdCloseProblems = new wxBitmapButton(
        this, wxID_ANY, wxArtProvider::GetBitmapBundle(wxART_CLOSE, wxART_BUTTON, FromDIP(wxSize(16, 16))),
        wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT | wxBORDER_NONE, wxDefaultValidator,
        "cmdCloseProblems");
    const int gap = FromDIP(6);
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(lblProblems, wxSizerFlags(1).CenterVertical().Border(wxRIGHT, gap));
    row->Add(cmdGoTo, wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
    row->Add(cmdFix, wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
    row->Add(cmdCloseProblems, wxSizerFlags().CenterVertical());
    sizer.Add(row, wxSizerFlags().Expand().Border(wxALL, FromDIP(3)));
}

// Gives the last column the room that the others leave.
void FormProblems::FitTextColumn() {
    int others = 0;
    for (int column = 0; column < TextColumn; ++column)
        others += lstProblems->GetColumnWidth(column);
    const int width = std::max(lstProblems->GetClientSize().x - others, FromDIP(TextWidth));
    if (lstProblems->GetColumnWidth(TextColumn) != width) lstProblems->SetColumnWidth(TextColumn, width);
}

void FormProblems::ShowTexts() {
    cmdGoTo->SetLabel(ResText(Message::ProblemsGoTo));
    cmdFix->SetLabel(ResText(Message::ProblemsFix));
    const std::string close = LoadResString(Message::ProblemsClose);
    cmdCloseProblems->SetToolTip(ToWx(close));
    platform::SetAccessibleName(*cmdCloseProblems, close);
    platform::SetAccessibleName(*lstProblems, LoadResString(Message::ProblemsTitle));
    lblProblems->SetLabel(ToWx(Summary()));
    Layout();
}

std::string FormProblems::Summary() const {
    std::string text;
    if (m_check.Count() > 0)
        text = FormatResString(Message::ProblemsCount, m_check.CountOf(Severity::Error),
                               m_check.CountOf(Severity::Warning), m_check.CountOf(Severity::Hint));
    else
        text = LoadResString(m_check.IsDone() ? Message::ProblemsNone : Message::ProblemsChecking);
    if (m_check.FilesWaiting() > 0)
        text.append(" ").append(FormatResString(Message::ProblemsWaiting, m_check.FilesWaiting()));
    return text;
}

// The texts of a row; null for a row that is not known.
const FormProblems::Row* FormProblems::RowAt(long row) {
    if (const auto drawn = m_rows.find(row); drawn != m_rows.end()) return &drawn->second;
    if (!HasRow(row)) return nullptr;
    const Finding finding = FindingAt(row);
    Row texts;
    texts[SeverityColumn] = LoadResString(SeverityText(finding.severity));
    texts[EntryColumn] = std::string(finding.entry->Caption());
    texts[FieldColumn] = finding.FieldName();
    texts[TextColumn] = finding.Text();
    texts[PlaceColumn] = EntryPlace(*finding.entry);
    return &m_rows.emplace(row, std::move(texts)).first->second;
}

void FormProblems::ShowFindings() {
    lblProblems->SetLabel(ToWx(Summary()));
    if (IsCurrent() && lstProblems->GetItemCount() == static_cast<int>(m_check.Count())) return;
    m_version = m_check.Version();
    m_order = OrderFindings(m_check, m_sorting, m_isReversed);
    m_rows.clear();
    m_isUpdating = true;
    lstProblems->SetRowCount(m_order.size());
    RestoreSelection();
    m_isUpdating = false;
    if (lstProblems->HasFocus()) SelectSome();
    UpdateButtons();
}

std::vector<Finding> FormProblems::Selected() const {
    std::vector<Finding> findings;
    if (!IsCurrent()) return findings;
    for (const long row : lstProblems->SelectedRows())
        if (HasRow(row)) findings.push_back(FindingAt(row));
    return findings;
}

// Called when the user has selected problems, so that they are found again in the next list.
void FormProblems::RememberSelection() {
    m_selected.clear();
    for (const Finding& finding : Selected())
        m_selected.push_back({finding.entry->ID(), finding.kind, finding.field});
    m_focused = std::max(lstProblems->GetFirstSelected(), 0L);
}

// Selects what was selected before. When none of it is left, the row where it was, so that the user goes on
// from there.
void FormProblems::RestoreSelection() {
    if (m_selected.empty() || m_order.empty()) return;
    const auto rows = static_cast<long>(m_order.size());
    bool isFound = false;
    for (long row = 0; row < rows; ++row) {
        const Finding finding = FindingAt(row);
        const bool wasSelected = std::any_of(m_selected.begin(), m_selected.end(), [&](const Place& place) {
            return place.kind == finding.kind && place.field == finding.field &&
                   place.id == finding.entry->ID();
        });
        if (!wasSelected) continue;
        lstProblems->Select(row);
        if (!isFound) lstProblems->Focus(row);
        isFound = true;
    }
    if (!isFound) lstProblems->SelectRow(std::min(m_focused, rows - 1));
}

void FormProblems::SelectFirstOf(const MenuEntry& entry) {
    if (!IsCurrent()) return;
    for (std::size_t row = 0; row < m_order.size(); ++row)
        if (m_check.EntryAt(m_order[row]) == &entry) return lstProblems->SelectRow(static_cast<long>(row));
}

void FormProblems::SortBy(FindingOrder order, bool reversed) {
    if (IsCurrent()) RememberSelection();
    m_sorting = order;
    m_isReversed = reversed;
    if (order == FindingOrder::Menu)
        lstProblems->RemoveSortIndicator();
    else
        lstProblems->ShowSortIndicator(static_cast<int>(order), !reversed);
    m_version = m_check.Version() - 1; // the rows are others
    ShowFindings();
}

void FormProblems::FocusList() {
    lstProblems->SetFocus();
    SelectSome();
}

// With the focus, the list always has a selected row.
void FormProblems::SelectSome() {
    if (lstProblems->GetSelectedItemCount() == 0 && lstProblems->GetItemCount() > 0)
        lstProblems->SelectRow(0);
}

// Keys that the window would take for the tree.
bool FormProblems::OnListKey(const wxKeyEvent& event) {
    if (event.GetModifiers() != wxMOD_CONTROL || event.GetKeyCode() != 'A' || !lstProblems->HasFocus())
        return false;
    m_isUpdating = true;
    for (long row = 0; row < lstProblems->GetItemCount(); ++row)
        lstProblems->Select(row);
    m_isUpdating = false;
    UpdateButtons();
    return true;
}

bool FormProblems::OnCharHook(const wxKeyEvent& event) {
    if (!IsDescendant(FindFocus())) return false;
    if (event.HasAnyModifiers()) return OnListKey(event);
    switch (event.GetKeyCode()) {
    case WXK_ESCAPE:
        if (onLeave) onLeave();
        return true;
    case WXK_F5:
        if (onCheckAgain) onCheckAgain();
        return true;
    case WXK_F2: {
        const std::vector<Finding> selected = Selected();
        if (selected.size() == 1 && onFix)
            onFix(Fix::Rename, selected);
        else
            wxBell();
        return true;
    }
    case WXK_DELETE:
        // It would remove the entry that is selected in the tree.
        wxBell();
        return true;
    default: return false;
    }
}

void FormProblems::UpdateButtons() {
    if (m_isUpdating) return;
    if (IsCurrent()) RememberSelection();
    const std::vector<Finding> selected = Selected();
    cmdGoTo->Enable(selected.size() == 1);
    cmdFix->Enable(ProblemFix::FixesFor(selected).any());
}

void FormProblems::GoTo() {
    const std::vector<Finding> selected = Selected();
    if (!selected.empty() && onGoTo) onGoTo(selected.front());
}

void FormProblems::OnContextMenu(wxContextMenuEvent& event) {
    wxPoint at = event.GetPosition();
    if (at == wxDefaultPosition) {
        // By key: below the focused row.
        wxRect row;
        const long focused = lstProblems->GetFocusedItem();
        if (focused == wxNOT_FOUND || !lstProblems->GetItemRect(focused, row)) row = wxRect(0, 0, 0, 0);
        at = wxPoint(row.x, row.GetBottom());
    } else {
        at = lstProblems->ScreenToClient(at);
    }
    ShowFixes(*lstProblems, at);
}

void FormProblems::ShowFixes(wxWindow& window, wxPoint at) {
    const std::vector<Finding> selected = Selected();
    if (selected.empty()) return;
    const FixSet fixes = ProblemFix::FixesFor(selected);
    wxMenu menu;
    constexpr int goToId = wxID_HIGHEST + 1;
    wxMenuItem* goTo = menu.Append(goToId, ResText(Message::ProblemsGoTo));
    goTo->Enable(selected.size() == 1);
    menu.AppendSeparator();
    for (std::size_t i = 0; i < FixTexts.size(); ++i)
        menu.Append(goToId + 1 + static_cast<int>(i), ResText(FixTexts[i]))->Enable(fixes.test(i));
    constexpr int worstId = goToId + 1 + static_cast<int>(FixTexts.size());
    constexpr int againId = worstId + 1;
    menu.AppendSeparator();
    menu.AppendCheckItem(worstId, ResText(Message::ProblemsWorstFirst))
        ->Check(m_sorting == FindingOrder::Severity && !m_isReversed);
    menu.Append(againId, ResText(Message::ProblemsCheckAgain));
    const int chosen = window.GetPopupMenuSelectionFromUser(menu, at);
    if (chosen == goToId)
        GoTo();
    else if (chosen == worstId)
        SortBy(m_sorting == FindingOrder::Severity ? FindingOrder::Menu : FindingOrder::Severity, false);
    else if (chosen == againId && onCheckAgain)
        onCheckAgain();
    else if (chosen > goToId && chosen < worstId && onFix)
        onFix(static_cast<Fix>(chosen - goToId - 1), selected);
}

} // namespace nesk
