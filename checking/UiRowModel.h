#pragma once

#include <functional>
#include <string>

#include <wx/dataview.h>

namespace nesk {

/// The rows of a list, of which only those are asked for that are drawn. Text columns, and optionally a first
/// column with a tick.
class UiRowModel : public wxDataViewVirtualListModel {
public:
    /// The text in a row and a column, both from 0.
    std::function<std::string(unsigned row, unsigned column)> text;

    /// The tick of a row; empty for a list without ticks. Column 0 is then the tick.
    std::function<bool(unsigned row)> isTicked;
    std::function<void(unsigned row, bool isTicked)> tick;

    // Overrides of wx.
    unsigned GetColumnCount() const override { return 1; } // not used by wx
    wxString GetColumnType(unsigned column) const override;
    void GetValueByRow(wxVariant& value, unsigned row, unsigned column) const override;
    bool SetValueByRow(const wxVariant& value, unsigned row, unsigned column) override;
};

} // namespace nesk
