#include "widgets/UiRowList.h"

#include "widgets/UiUtilities.h"

#include <algorithm>

namespace nesk {

namespace {

constexpr int TitleMargin = 8;

} // namespace

UiRowList::UiRowList(wxWindow* parent, const char* name, wxSize size, Style style)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, size,
                 wxLC_REPORT | wxLC_VIRTUAL | wxBORDER_THEME | (style.multiple ? 0 : wxLC_SINGLE_SEL),
                 wxDefaultValidator, name)
    , m_preferredSize(size) {
    if (style.multiple) Bind(wxEVT_CHAR_HOOK, &UiRowList::OnCharHook, this);
    if (!style.ticks) return;
    EnableCheckBoxes();
    const auto onTick = [this](bool isOn) {
        return [this, isOn](wxListEvent& event) {
            if (!tick || isTicked(event.GetIndex()) == isOn) return;
            tick(event.GetIndex(), isOn);
            RefreshItem(event.GetIndex());
            // Keys go on from the row that was clicked.
            if (!IsSelected(event.GetIndex())) SelectRow(event.GetIndex());
        };
    };
    Bind(wxEVT_LIST_ITEM_CHECKED, onTick(true));
    Bind(wxEVT_LIST_ITEM_UNCHECKED, onTick(false));
}

void UiRowList::AddColumn(int titleId, int width, wxListColumnFormat format) {
    const wxString title = modUtilities::ResText(titleId);
    // Some languages have longer words.
    const int least = GetTextExtent(title).x + 2 * FromDIP(TitleMargin);
    AppendColumn(title, format, std::max(width, least));
}

void UiRowList::SetRowCount(std::size_t count) {
    for (const long row : SelectedRows())
        Select(row, false);
    SetItemCount(static_cast<long>(count));
    Refresh();
}

// The toolkit's list forgets the selected row when the first key is Shift and an arrow, because only a click
// or a plain key tells it where a selection begins.
void UiRowList::OnCharHook(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const long row = GetFocusedItem();
    if (event.GetModifiers() != wxMOD_SHIFT || (key != WXK_UP && key != WXK_DOWN) || row == wxNOT_FOUND) {
        if (key != WXK_SHIFT) m_anchor = wxNOT_FOUND;
        return event.Skip();
    }
    if (m_anchor == wxNOT_FOUND) m_anchor = row;
    ExtendTo(std::clamp(row + (key == WXK_DOWN ? 1L : -1L), 0L, GetItemCount() - 1L));
}

// Selects the rows from the anchor to a row.
void UiRowList::ExtendTo(long row) {
    const auto [first, last] = std::minmax(m_anchor, row);
    for (const long other : SelectedRows())
        if (other < first || other > last) Select(other, false);
    for (long inside = first; inside <= last; ++inside)
        if (!IsSelected(inside)) Select(inside);
    Focus(row);
}

std::vector<long> UiRowList::SelectedRows() const {
    std::vector<long> rows;
    for (long row = GetFirstSelected(); row != wxNOT_FOUND; row = GetNextSelected(row))
        rows.push_back(row);
    return rows;
}

void UiRowList::SelectRow(long row) {
    for (const long other : SelectedRows())
        if (other != row) Select(other, false);
    Select(row);
    Focus(row); // scrolls, too
}

std::vector<int> UiRowList::ColumnWidths() const {
    std::vector<int> widths;
    widths.reserve(static_cast<std::size_t>(GetColumnCount()));
    for (int i = 0; i < GetColumnCount(); ++i)
        widths.push_back(ToDIP(GetColumnWidth(i)));
    return widths;
}

wxString UiRowList::OnGetItemText(long row, long column) const {
    return modUtilities::ToWx(text(row, static_cast<int>(column)));
}

bool UiRowList::OnGetItemIsChecked(long row) const {
    return isTicked && isTicked(row);
}

} // namespace nesk
