#pragma once

#include "widgets/FormDialog.h"

#include <cstddef>
#include <string>

namespace nesk {

class Menu;
class MenuMerge;
class UiRowList;
struct MergeConflict;

/// Merges the open menu with a version of it that somebody else has saved. Where both sides changed the same,
/// the user chooses what holds.
class FormMerge : public FormDialog {
public:
    /// @param merge  gets the choices; it must outlive the dialog, as must the three menus
    FormMerge(wxWindow* parent, MenuMerge& merge, const Menu& base, const Menu& ours, const Menu& theirs);

    /// Shows the dialog.
    /// @return true when the user wants to merge; the choices are in the merge
    bool Invoke();

    // Controls.
    wxStaticText* lblHeading = nullptr;
    wxStaticText* lblConflicts = nullptr;
    UiRowList* lstConflicts = nullptr; ///< null when there are no conflicts
    wxButton* cmdAllOurs = nullptr;    ///< null like it
    wxButton* cmdAllTheirs = nullptr;
    wxStaticText* lblHint = nullptr;
    wxButton* cmdLook = nullptr;

protected:
    /// Merges.
    void OnOK() override { Accept(); }

private:
    void BuildConflicts(wxSizer& content);
    static std::string TextAt(const MergeConflict& conflict, int column);
    void Exchange(long row);
    void ExchangeSelected();
    void ChooseAll(bool ours);
    void Look();

    MenuMerge& m_merge;
    const Menu& m_base;
    const Menu& m_theirs;
};

} // namespace nesk
