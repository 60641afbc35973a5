#pragma once

#include "editing/MenuEditor.h"
#include "platform/UiTreeView.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace nesk {

class MenuItem;

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

    /// Decides for each child of an entry whether it is shown.
    using ChildFilter = std::function<std::vector<bool>(const MenuEntry&)>;

    /// Sets the filter for the children that are shown; null shows all. Nodes that exist stay until
    /// BuildTree.
    void SetFilter(ChildFilter filter) { m_filter = std::move(filter); }

    /// Decides whether an entry has a problem, or an entry below it has one.
    using ProblemSource = std::function<bool(const MenuEntry&)>;

    /// Sets what decides which entries are marked; null marks none but parts without a program.
    void SetProblems(ProblemSource hasProblem) { m_hasProblem = std::move(hasProblem); }

    /// Shows the marks again, because other entries may have problems now.
    void UpdateMarks();

    /// Prepares for a change of several events.
    void Expect(std::size_t events);

    /// Updates the tree after one event of a change. After many events of one change, the tree is outdated
    /// until Settle.
    void Follow(const MenuEvent& event);

    /// Ends a change. If it had many events, the tree is built again: that is faster than following each.
    void Settle();

    /// Id of the entry of a node; "" for null.
    static std::string KeyOf(const platform::TreeNode* node);

    /// Id of the selected entry; "" when nothing is selected.
    std::string SelectedKey() const { return KeyOf(m_view.Selected()); }

    /// Ids of all selected entries, from top to bottom.
    EntryIds SelectedKeys() const;

    /// The node of an entry; null when there is no such node. Creates the nodes above it.
    platform::TreeNode* NodeOf(const std::string& id);

    /// Selects an entry and scrolls to it.
    void SelectKey(const std::string& id);

    /// Selects entries and scrolls to the first of them. Entries that do not exist are left out; when none
    /// exists, the selection stays.
    void SelectKeys(const EntryIds& ids);

    /// Selects the siblings of the selected entry or, when they are selected already, all rows but the root.
    void SelectMore();

    /// Expands an entry and everything below it, down to the number of levels that the view can show.
    void ExpandBelow(const std::string& id);

    /// Collapses all entries but the root. When the selected entry disappears, the submenu of the main menu
    /// in which it is becomes selected.
    void CollapseAll();

    /// The selection, the expanded entries and the scroll position, to be shown again later.
    std::unique_ptr<EditContext> Context();

private:
    class ViewContext;

    int ImageOf(const MenuEntry& entry) const;
    std::unique_ptr<platform::TreeNode> NodeFor(const MenuItem& item) const;
    static EntryIds ExpandedFrom(const platform::TreeNode& node, const std::string& id);
    void ShowExpanded(const EntryIds& expanded);
    void Fill(platform::TreeNode& node);
    platform::TreeNode* ExistingNodeOf(const std::string& id) const;
    platform::TreeNode* FindNode(const std::string& id, platform::TreeView::Missing missing) const;
    std::vector<platform::TreeNode*> NodesOf(const EntryIds& ids);
    void Describe(platform::TreeNode& node, const MenuEntry& entry);
    void Place(const MenuEvent& event);
    std::size_t IndexFor(const platform::TreeNode& parent, const MenuEvent& event) const;
    void Move(const MenuEvent& event);
    void Remove(const std::string& id);

    const MenuEditor& m_editor;
    ChildFilter m_filter;
    ProblemSource m_hasProblem;
    platform::TreeView& m_view;
    std::shared_ptr<const EntryIds> m_lastExpanded; // shared by contexts between which nothing was expanded
    std::size_t m_events = 0;                       // of the present change
    std::unique_ptr<ViewContext> m_toRestore;       // while the tree is outdated
};

} // namespace nesk
