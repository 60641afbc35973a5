#pragma once

#include "editing/MenuEditor.h"
#include "platform/UiTreeView.h"

#include <memory>
#include <string>
#include <vector>

namespace nesk {

/// The tree view of the open menu. It never changes the menu: it displays what the editor reports, and maps
/// nodes to entries. The key of a node is the counter of its entry; the key of the root node is "R".
class FormMenuTree {
public:
    FormMenuTree(wxWindow* parent, const MenuEditor& editor);
    ~FormMenuTree();
    FormMenuTree(const FormMenuTree&) = delete;
    FormMenuTree& operator=(const FormMenuTree&) = delete;

    /// The control. The parent window owns it.
    platform::TreeView& View() { return m_view; }
    const platform::TreeView& View() const { return m_view; }
    wxWindow& Window() { return m_view.Window(); }

    /// Removes all nodes.
    void ClearTree();

    /// Builds the tree again from the open menu, with the root expanded and selected. Shows nothing when no
    /// menu is open.
    void BuildTree();

    /// Updates the tree after one event of a change. An entry that moved stays selected.
    void Follow(const MenuEvent& event);

    /// Id of the entry of a node; "" for null.
    static std::string KeyOf(const platform::TreeNode* node);

    /// Id of the selected entry; "" when nothing is selected.
    std::string SelectedKey() const { return KeyOf(m_view.Selected()); }

    /// The node of an entry; null when there is no such node.
    platform::TreeNode* NodeOf(const std::string& id);

    /// Selects an entry and scrolls to it.
    void SelectKey(const std::string& id);

    /// The selection, the expanded entries and the scroll position, to be shown again later.
    std::unique_ptr<EditContext> Context();

private:
    class ViewContext;
    using Ids = std::vector<std::string>;

    static Ids ExpandedFrom(const platform::TreeNode& node, const std::string& id);
    void ShowExpanded(const Ids& expanded);
    void Fill(platform::TreeNode& node);
    void Place(const MenuEvent& event);
    void Move(const MenuEvent& event);

    const MenuEditor& m_editor;
    platform::TreeView& m_view;
    std::shared_ptr<const Ids> m_lastExpanded; // shared by the contexts between which nothing was expanded
};

} // namespace nesk
