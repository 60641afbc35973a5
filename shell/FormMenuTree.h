#pragma once

#include "editing/MenuEditor.h"
#include "platform/UiTreeView.h"

#include <string>

namespace nesk {

/// The tree view that mirrors the open menu. It changes nothing: it shows what the editor reports and tells
/// which entry a node stands for. The key of a node is the counter of its entry, that of the root "R".
class FormMenuTree {
public:
    FormMenuTree(wxWindow* parent, const MenuEditor& editor);
    ~FormMenuTree();
    FormMenuTree(const FormMenuTree&) = delete;
    FormMenuTree& operator=(const FormMenuTree&) = delete;

    /// The control, which the parent window owns.
    platform::TreeView& View() { return m_view; }
    const platform::TreeView& View() const { return m_view; }
    wxWindow& Window() { return m_view.Window(); }

    /// Removes all nodes.
    void ClearTree();

    /// Shows the open menu anew, with the root expanded and selected; nothing when none is open.
    void BuildTree();

    /// Follows one change of the menu. An entry that moved stays selected.
    void Follow(const MenuEvent& event);

    /// Id of the entry that a node stands for; "" for null.
    static std::string KeyOf(const platform::TreeNode* node);

    /// Id of the selected entry; "" when none is selected.
    std::string SelectedKey() const { return KeyOf(m_view.Selected()); }

    /// The node of an entry; null when there is none.
    platform::TreeNode* NodeOf(const std::string& id);

    /// Selects an entry and brings it into view.
    void SelectKey(const std::string& id);

private:
    void Fill(platform::TreeNode& node);
    void Place(const MenuEvent& event);
    void Move(const MenuEvent& event);

    const MenuEditor& m_editor;
    platform::TreeView& m_view;
};

} // namespace nesk
