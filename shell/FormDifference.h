#pragma once

#include "widgets/FormDialog.h"

#include <cstddef>
#include <string>
#include <vector>

namespace nesk::platform {
class TreeNode;
class TreeView;
} // namespace nesk::platform

namespace nesk {

class MenuDiff;

/// Shows the difference of two menus as a tree: what was added, removed, moved and changed, and the old and
/// the new value of each field.
class FormDifference : public FormDialog {
public:
    /// @param difference  must outlive the dialog, as must its menus
    /// @param heading     which menus are compared
    FormDifference(wxWindow* parent, const MenuDiff& difference, const std::string& heading);
    ~FormDifference() override;

    /// Shows the dialog.
    void Invoke();

    /// Shows the dialog, in which entries can be chosen to be restored.
    /// @return the chosen nodes of the difference, as indexes into MenuDiff::Nodes; none when nothing is to
    /// be
    ///         restored
    std::vector<std::size_t> ChooseNodes();

    // Controls.
    wxStaticText* lblHeading = nullptr;
    wxStaticText* lblSummary = nullptr;
    wxStaticText* lblTree = nullptr;
    platform::TreeView* tvDifference = nullptr;

protected:
    /// Restores what is selected, or only closes the dialog.
    void OnOK() override;

private:
    void Fill(platform::TreeNode& node);
    void ShowTree();
    std::vector<std::size_t> Selected() const;

    const MenuDiff& m_difference;
    bool m_choosesNodes = false;
};

} // namespace nesk
