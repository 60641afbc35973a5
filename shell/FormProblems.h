#pragma once

#include "checking/FindingOrder.h"
#include "checking/MenuCheck.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include <wx/panel.h>

class wxBitmapButton;
class wxButton;
class wxStaticText;

namespace nesk {

class UiRowList;

/// The pane that lists the problems of the open menu. It decides nothing.
class FormProblems : public wxPanel {
public:
    /// @param check  must outlive the pane
    FormProblems(wxWindow* parent, const MenuCheck& check);
    ~FormProblems() override;

    /// Sets the texts of the controls in the language in use.
    void ShowTexts();

    /// Shows the present problems. The selected ones stay selected while they exist.
    void ShowFindings();

    /// Gives the list the focus, with a selected row.
    void FocusList();

    /// Handles a key while the pane has the focus. Returns false for a key that is a command of the window.
    bool OnCharHook(const wxKeyEvent& event);

    /// The selected problems, from top to bottom; none while the list is out of date.
    std::vector<Finding> Selected() const;

    /// Selects the first problem of an entry, if it has one.
    void SelectFirstOf(const MenuEntry& entry);

    // What the user did.
    std::function<void(const Finding&)> onGoTo;
    std::function<void(Fix, const std::vector<Finding>&)> onFix;
    std::function<void()> onCheckAgain; ///< the files are to be looked up again
    std::function<void()> onLeave;      ///< Escape was pressed
    std::function<void()> onClose;

    // Controls.
    wxStaticText* lblProblems = nullptr; ///< how many problems there are
    wxButton* cmdGoTo = nullptr;
    wxButton* cmdFix = nullptr;
    wxBitmapButton* cmdCloseProblems = nullptr;
    UiRowList* lstProblems = nullptr;

private:
    static constexpr int ColumnCount = 5;
    using Row = std::array<std::string, ColumnCount>;

    // What a problem is recognised by when the list is made anew.
    struct Place {
        std::string id;
        FindingKind kind;
        std::optional<TextField> field;
    };

    void BuildHeading(wxSizer& sizer);
    void FitTextColumn();
    void SortBy(FindingOrder order, bool reversed);
    Finding FindingAt(long row) const { return m_check.At(m_order[static_cast<std::size_t>(row)]); }
    bool HasRow(long row) const { return IsCurrent() && static_cast<std::size_t>(row) < m_order.size(); }
    bool OnListKey(const wxKeyEvent& event);
    bool IsCurrent() const { return m_version == m_check.Version(); }
    const Row* RowAt(long row);
    std::string Summary() const;
    void RememberSelection();
    void RestoreSelection();
    void SelectSome();
    void UpdateButtons();
    void GoTo();
    void ShowFixes(wxWindow& window, wxPoint at);
    void OnContextMenu(wxContextMenuEvent& event);

    const MenuCheck& m_check;
    std::size_t m_version = 0; // of the problems that are shown
    FindingOrder m_sorting = FindingOrder::Menu;
    bool m_isReversed = false;
    std::vector<std::size_t> m_order; // the problem of each row
    // The rows that have been drawn. They are kept while the list is out of date, so that it does not
    // flicker.
    std::unordered_map<long, Row> m_rows;
    std::vector<Place> m_selected;
    long m_focused = 0;
    bool m_isUpdating = false;
};

} // namespace nesk
