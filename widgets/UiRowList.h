#pragma once

#include <functional>
#include <string>
#include <vector>

#include <wx/listctrl.h>

namespace nesk {

/// A list with columns, whose rows are asked for only when they are drawn, so that it may have any number of
/// them. Rows may have ticks.
class UiRowList : public wxListView {
public:
    /// What the list can do.
    struct Style {
        bool multiple = false; ///< several rows can be selected
        bool ticks = false;    ///< each row has a tick
    };

    /// @param name  control name
    UiRowList(wxWindow* parent, const char* name, wxSize size, Style style);

    /// The size that it was created with.
    wxSize PreferredSize() const { return m_preferredSize; }

    /// Adds a column with a title by number. `width` is in pixels; the column is wide
    /// enough for its title in any case.
    void AddColumn(int titleId, int width, wxListColumnFormat format = wxLIST_FORMAT_LEFT);

    /// The text in a row and a column, both from 0.
    std::function<std::string(long row, int column)> text;

    /// The tick of a row, and what happens when the user changes it.
    std::function<bool(long row)> isTicked;
    std::function<void(long row, bool isTicked)> tick;

    /// Sets the number of rows, and draws them again.
    void SetRowCount(std::size_t count);

    /// The selected rows, from top to bottom.
    std::vector<long> SelectedRows() const;

    /// Selects only this row and scrolls to it.
    void SelectRow(long row);

    /// Widths of the columns, in device-independent pixels.
    std::vector<int> ColumnWidths() const;

    // Overrides of wx.
    wxString OnGetItemText(long row, long column) const override;
    bool OnGetItemIsChecked(long row) const override;
    int OnGetItemColumnImage(long, long) const override { return -1; }
    int OnGetItemImage(long) const override { return -1; }

private:
    void OnCharHook(wxKeyEvent& event);
    void ExtendTo(long row);

    wxSize m_preferredSize;
    long m_anchor = wxNOT_FOUND; // where a selection by Shift and arrow keys began
};

} // namespace nesk
