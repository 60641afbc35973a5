#pragma once

#include "editing/EntryIds.h"
#include "widgets/FormDialog.h"

namespace nesk::platform {
class TreeNode;
class TreeView;
} // namespace nesk::platform

namespace nesk {

class MenuEditor;

/// A dialog that shows the submenus of the open menu and lets the user choose the one to which entries are
/// moved.
class FormMoveTo : public FormDialog {
public:
    FormMoveTo(wxWindow* parent, const MenuEditor& editor);
    ~FormMoveTo() override;

    /// Shows the dialog with the present submenu of the entries selected.
    /// @param ids  the entries to move
    /// @return id of the chosen submenu; "" when the dialog was cancelled
    std::string Choose(const EntryIds& ids);

    // Controls.
    wxStaticText* lblSubmenu = nullptr;
    platform::TreeView* tvSubmenus = nullptr;

protected:
    void OnOK() override;

private:
    void Fill(platform::TreeNode& node);

    const MenuEditor& m_editor;
    EntryIds m_ids;
    std::string m_target;
};

} // namespace nesk
