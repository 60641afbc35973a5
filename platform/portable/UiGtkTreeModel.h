#pragma once

#include "platform/TreeNode.h"

#include <vector>

#include <gtk/gtk.h>

namespace nesk::platform::portable {

/// The columns of the model.
enum GtkTreeColumn { ImageColumn, TextColumn, MarkupColumn, ColumnCount };

/// A GTK tree model over the nodes, without a copy of its own. An iterator refers to the node itself.
class GtkNodeModel {
public:
    GtkNodeModel();
    ~GtkNodeModel();
    GtkNodeModel(const GtkNodeModel&) = delete;
    GtkNodeModel& operator=(const GtkNodeModel&) = delete;

    GtkTreeModel* Model() const { return m_model; }

    /// Sets the tree to show: one topmost row and all rows below it; null for an empty tree. Call it only
    /// while no view uses the model.
    void SetRoot(TreeNode* root);

    /// Sets the pictures, indexed by the image number of a node. The model keeps references.
    void SetImages(std::vector<cairo_surface_t*> images);

    static TreeNode& NodeOf(const GtkTreeIter& iter) { return *static_cast<TreeNode*>(iter.user_data); }
    static GtkTreeIter IterOf(TreeNode& node);

    /// The node at a path; null when the path has no node.
    TreeNode* NodeAt(GtkTreePath* path) const;

    /// The path of a node. Free it with gtk_tree_path_free.
    static GtkTreePath* PathOf(const TreeNode& node);

    // Notifications to the views of the model.
    void RowInserted(TreeNode& node);
    void RowRemoved(TreeNode& parent, std::size_t index);
    void RowChanged(TreeNode& node);
    void ChildrenToggled(TreeNode& node);

private:
    GtkTreeModel* m_model;
};

} // namespace nesk::platform::portable
