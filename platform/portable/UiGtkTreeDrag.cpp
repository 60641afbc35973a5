// Mouse handling of GTK's tree view: clicks on one of several selected rows, and dragging.

#include "platform/portable/UiGtkTreeView.h"

#include "platform/portable/UiGtkEntries.h"

#include <algorithm>

namespace nesk::platform::portable {

namespace {

GtkTreeControl& Of(gpointer self) {
    return *static_cast<GtkTreeControl*>(self);
}

} // namespace

gboolean GtkTreeControl::OnButtonPress(const GdkEventButton& press) {
    if (press.type != GDK_BUTTON_PRESS || press.window != gtk_tree_view_get_bin_window(m_tree)) return FALSE;
    m_pressed = nullptr;
    GtkTreePath* path = nullptr;
    const int x = static_cast<int>(press.x), y = static_cast<int>(press.y);
    if (gtk_tree_view_get_path_at_pos(m_tree, x, y, &path, nullptr, nullptr, nullptr) == FALSE) return FALSE;
    TreeNode* const node = m_model.NodeAt(path);
    const bool selected =
        gtk_tree_selection_path_is_selected(gtk_tree_view_get_selection(m_tree), path) != FALSE;
    GdkRectangle cell{};
    gtk_tree_view_get_cell_area(m_tree, path, m_column, &cell);
    gtk_tree_path_free(path);
    // Clicks left of the cell expand or collapse the row.
    if (node == nullptr || x < cell.x) return FALSE;
    if (press.button != GDK_BUTTON_PRIMARY) return FALSE;
    ReportClick(*node);
    if ((press.state & GDK_SHIFT_MASK) != 0) return FALSE;
    const bool control = (press.state & GDK_CONTROL_MASK) != 0;
    m_pressed = node;
    m_pressedAt = wxPoint(static_cast<int>(press.x_root), static_cast<int>(press.y_root));
    // GTK would select this row alone, or with Ctrl deselect it, so it could not be dragged with the others.
    m_pressedSelected = selected && m_style.drag && (control || Selection().size() > 1);
    m_pressedControl = control;
    if (!m_pressedSelected) return FALSE;
    gtk_widget_grab_focus(GTK_WIDGET(m_tree));
    return TRUE;
}

gboolean GtkTreeControl::OnButtonRelease(const GdkEventButton& release) {
    TreeNode* const node = m_pressed;
    m_pressed = nullptr;
    if (release.button != GDK_BUTTON_PRIMARY || node == nullptr || !m_pressedSelected) return FALSE;
    if (!m_pressedControl) {
        Select(node);
        return TRUE;
    }
    std::vector<TreeNode*> rest = Selection();
    std::erase(rest, node);
    SelectAll(rest, rest.empty() ? nullptr : rest.front());
    return TRUE;
}

gboolean GtkTreeControl::OnMotion(GdkEventMotion& motion) {
    if (!m_style.drag || m_pressed == nullptr || (motion.state & GDK_BUTTON1_MASK) == 0) return FALSE;
    if (gtk_drag_check_threshold(GTK_WIDGET(m_tree), m_pressedAt.x, m_pressedAt.y,
                                 static_cast<int>(motion.x_root), static_cast<int>(motion.y_root)) == FALSE)
        return FALSE;
    TreeNode* const node = m_pressed;
    m_pressed = nullptr;
    const std::vector<TreeNode*> selection = Selection();
    const bool isSelected = std::find(selection.begin(), selection.end(), node) != selection.end();
    if (!BeginDrag(isSelected ? selection : std::vector<TreeNode*>{node})) return FALSE;
    const GtkTargetEntry target = EntryTarget();
    GtkTargetList* const targets = gtk_target_list_new(&target, 1);
    gtk_drag_begin_with_coordinates(GTK_WIDGET(m_tree), targets,
                                    GdkDragAction(GDK_ACTION_MOVE | GDK_ACTION_COPY), GDK_BUTTON_PRIMARY,
                                    reinterpret_cast<GdkEvent*>(&motion), -1, -1);
    gtk_target_list_unref(targets);
    return TRUE;
}

void GtkTreeControl::ConnectDrag() {
    const GtkTargetEntry target = EntryTarget();
    // The window around the tree receives drops. The tree alone does not get drags over its scroll bars,
    // which lie over its edges, where a drag has to scroll.
    gtk_drag_dest_set(m_widget, GtkDestDefaults(0), &target, 1,
                      GdkDragAction(GDK_ACTION_MOVE | GDK_ACTION_COPY));
    m_files = std::make_unique<GtkFiles>(*this, m_widget, FileEvents());
    const auto connectTarget = [this](const char* signal, GCallback handler) {
        g_signal_connect(m_widget, signal, handler, this);
    };
    const auto connect = [this](const char* signal, GCallback handler) {
        g_signal_connect(m_tree, signal, handler, this);
    };
    connectTarget("drag-motion",
                  G_CALLBACK(+[](GtkWidget*, GdkDragContext* context, int x, int y, guint time,
                                 gpointer self) { return Of(self).OnDragMotion(context, x, y, time); }));
    connectTarget("drag-drop",
                  G_CALLBACK(+[](GtkWidget*, GdkDragContext* context, int x, int y, guint time,
                                 gpointer self) { return Of(self).OnDragDrop(context, x, y, time); }));
    connectTarget("drag-leave", G_CALLBACK(+[](GtkWidget*, GdkDragContext*, guint, gpointer self) {
                      Of(self).OnDragLeave();
                  }));
    connect("drag-end", G_CALLBACK(+[](GtkWidget*, GdkDragContext*, gpointer self) { Of(self).EndDrag(); }));
    // GTK's own handlers, which transfer rows of its models, must not run.
    connect("drag-data-get", G_CALLBACK(+[](GtkWidget* tree, GdkDragContext*, GtkSelectionData* data, guint,
                                            guint, gpointer self) {
                g_signal_stop_emission_by_name(tree, "drag-data-get");
                SetDragText(*data, Of(self).DragText());
            }));
    connectTarget(
        "drag-data-received",
        G_CALLBACK(+[](GtkWidget*, GdkDragContext* context, int x, int y, GtkSelectionData* data, guint,
                       guint time, gpointer self) { Of(self).OnDragReceived(context, x, y, *data, time); }));
    connect("drag-data-delete", G_CALLBACK(+[](GtkWidget* tree, GdkDragContext*, gpointer self) {
                g_signal_stop_emission_by_name(tree, "drag-data-delete");
                Of(self).ReportTaken();
            }));
}

gboolean GtkTreeControl::OnDragMotion(GdkDragContext* context, int x, int y, guint time) {
    if (m_files->Brings(context)) return m_files->OnMotion(context, wxPoint(x, y), time);
    const bool copies = DragCopies(context);
    const bool allowed = DragTo(wxPoint(x, y), copies);
    gdk_drag_status(context, !allowed ? GdkDragAction(0) : copies ? GDK_ACTION_COPY : GDK_ACTION_MOVE, time);
    return TRUE;
}

void GtkTreeControl::OnDragLeave() {
    m_files->OnLeave();
    LeaveDrag();
}

gboolean GtkTreeControl::OnDragDrop(GdkDragContext* context, int x, int y, guint time) {
    if (m_files->Brings(context)) return m_files->OnDrop(context, wxPoint(x, y), time);
    if (gtk_drag_get_source_widget(context) != GTK_WIDGET(m_tree)) {
        // The rows come from another window, which has to send them first.
        GdkAtom target = gtk_drag_dest_find_target(m_widget, context, nullptr);
        if (target == GDK_NONE) return FALSE;
        gtk_drag_get_data(m_widget, context, target, time);
        return TRUE;
    }
    const bool dropped = Drop(wxPoint(x, y), DragCopies(context));
    gtk_drag_finish(context, gboolean{dropped}, FALSE, time);
    return TRUE;
}

void GtkTreeControl::OnDragReceived(GdkDragContext* context, int x, int y, GtkSelectionData& data,
                                    guint time) {
    if (m_files->Brings(context)) return m_files->OnReceived(context, data, time);
    const bool copies = gdk_drag_context_get_selected_action(context) == GDK_ACTION_COPY;
    const std::string text = portable::DragText(data);
    const bool dropped = !text.empty() && DropText(wxPoint(x, y), copies, text);
    // What was moved is removed from the other window.
    gtk_drag_finish(context, gboolean{dropped}, gboolean{dropped && !copies}, time);
}

void GtkTreeControl::DoMark(const TreeDrop& drop) {
    if (drop.node == nullptr) {
        gtk_tree_view_set_drag_dest_row(m_tree, nullptr, GTK_TREE_VIEW_DROP_BEFORE);
        return;
    }
    GtkTreePath* const path = GtkNodeModel::PathOf(*drop.node);
    const GtkTreeViewDropPosition position = drop.where == TreeDrop::Where::Before ? GTK_TREE_VIEW_DROP_BEFORE
                                             : drop.where == TreeDrop::Where::After
                                                 ? GTK_TREE_VIEW_DROP_AFTER
                                                 : GTK_TREE_VIEW_DROP_INTO_OR_AFTER;
    gtk_tree_view_set_drag_dest_row(m_tree, path, position);
    gtk_tree_path_free(path);
}

} // namespace nesk::platform::portable
