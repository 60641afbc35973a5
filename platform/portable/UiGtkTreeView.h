#pragma once

#include "platform/UiTreeView.h"
#include "platform/portable/UiGtkFiles.h"
#include "platform/portable/UiGtkTreeModel.h"

#include <wx/control.h>

namespace nesk::platform::portable {

/// The tree view of GTK, which screen readers support.
class GtkTreeControl final : public wxControl, public TreeView {
public:
    GtkTreeControl(wxWindow* parent, const char* name, const TreeStyle& style);
    ~GtkTreeControl() override;

    wxWindow& Window() override { return *this; }
    void SetImages(const std::vector<wxBitmapBundle>& images) override;
    void SetAccessibleName(const std::string& name) override;
    void RefreshMarks() override { gtk_widget_queue_draw(GTK_WIDGET(m_tree)); }

    std::vector<TreeNode*> Selection() const override;
    TreeNode* Selected() const override;
    Scroll ScrollPosition() const override;
    void SetScrollPosition(const Scroll& scroll) override;
    wxRect RowRect(const TreeNode& node) const override;
    TreeNode* RowAt(wxPoint point) const override;

    void EditLabel(TreeNode& node) override;
    void EndLabelEdit(bool keep) override;
    std::string EditText() const override;
    void SetEditText(const std::string& text) override;

    // Overrides that wx needs for a control made of several widgets.
    GtkWidget* GetConnectWidget() override { return GTK_WIDGET(m_tree); }
    void OnInternalIdle() override;

protected:
    GdkWindow* GTKGetWindow(wxArrayGdkWindows& windows) const override;
    void DoApplyWidgetStyle(GtkRcStyle* style) override;
    int GTKIMFilterKeypress(GdkEventKey* event) const override;
    wxSize DoGetBestClientSize() const override;

    void DoReset() override;
    void DoInserted(TreeNode& node) override;
    void DoRemove(TreeNode& node) override;
    void DoRemoved(TreeNode& parent, std::size_t index) override { m_model.RowRemoved(parent, index); }
    void DoChanged(TreeNode& node) override;
    void DoSelect(const std::vector<TreeNode*>& nodes, TreeNode* current) override;
    void DoExpand(TreeNode& node) override;
    void DoCollapse(TreeNode& node) override;
    void DoShow(TreeNode& node) override;
    void DoMark(const TreeDrop& drop) override;
    void DoScrollRows(int rows) override;

private:
    void BuildWidgets(const TreeStyle& style);
    void ConnectTree();
    void ConnectLabels();
    void ConnectDrag();

    // Signals of the tree.
    gboolean OnTestExpand(GtkTreeIter* iter);
    void OnExpanded(GtkTreeIter* iter);
    gboolean OnButtonPress(const GdkEventButton& press);
    gboolean OnButtonRelease(const GdkEventButton& release);
    gboolean OnMotion(GdkEventMotion& motion);

    // Signals of the label's text box.
    void OnEditStarted(GtkCellEditable* editable);
    void OnEditCanceled();
    void OnEditChanged();
    void PlaceEntry(GtkWidget* entry, const GdkRectangle& place);

    // Drag signals.
    gboolean OnDragMotion(GdkDragContext* context, int x, int y, guint time);
    gboolean OnDragDrop(GdkDragContext* context, int x, int y, guint time);
    void OnDragReceived(GdkDragContext* context, int x, int y, GtkSelectionData& data, guint time);
    void OnDragLeave();

    void WidenColumn();
    void ScrollAgain();
    wxPoint FromWidget(int x, int y) const;
    bool HasPath(TreeNode* node, GtkTreePath* path) const;

    TreeStyle m_style;
    GtkNodeModel m_model;
    std::unique_ptr<GtkFiles> m_files; // null when nothing can be dragged
    GtkTreeView* m_tree = nullptr;
    GtkTreeViewColumn* m_column = nullptr;
    GtkCellRenderer* m_imageCell = nullptr;
    GtkCellRenderer* m_textCell = nullptr;
    GtkEntry* m_entry = nullptr; // while a label is edited
    GtkIMContext* m_input = nullptr;
    bool m_restoring = false;
    bool m_correcting = false;
    int m_columnWidth = 0;
    bool m_rowsChanged = false; // since the column was last widened

    // The pending scroll target. It was set before its rows had a layout; scrolling is repeated after the
    // layout.
    TreeNode* m_toShow = nullptr;
    Scroll m_toScroll;
    bool m_scrolling = false;
    bool m_heightChanged = false;

    // The last press on a selected row: it either starts dragging all selected rows or selects this row
    // alone.
    TreeNode* m_pressed = nullptr;
    bool m_pressedSelected = false;
    bool m_pressedControl = false; // with Ctrl held down: deselects the row unless it starts a drag
    wxPoint m_pressedAt;           // in screen coordinates
};

} // namespace nesk::platform::portable
