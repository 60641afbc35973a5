#pragma once

#include "editing/UndoStack.h"
#include "widgets/FormDialog.h"

#include <cstddef>
#include <vector>

class wxListBox;

namespace nesk {

/// Shows the changes of the menu, the last one first, and lets the user choose how many of them to undo.
class FormUndoHistory : public FormDialog {
public:
    explicit FormUndoHistory(wxWindow* parent);

    /// Shows the dialog.
    /// @param names  the changes, the last one first; not empty
    /// @return how many changes to undo; 0 when the dialog was cancelled
    std::size_t Choose(const std::vector<ChangeName>& names);

    // Controls.
    wxStaticText* lblChanges = nullptr;
    wxListBox* lstChanges = nullptr;
    wxStaticText* lblCount = nullptr; ///< how many changes are undone

protected:
    void OnOK() override;

private:
    void ShowCount();
};

} // namespace nesk
